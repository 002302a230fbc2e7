#pragma once

#include "docparser/account/AccountRecorder.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <optional>

namespace reference::docparser {

/// Observes one retrieval. Records for the account of the thread's innermost LoadAccount::Scope and
/// appends the recording to it when the retrieval ends. Does nothing without a scope.
class RetrievalRecording {
public:
    RetrievalRecording() noexcept;
    ~RetrievalRecording();
    RetrievalRecording(const RetrievalRecording&) = delete;
    RetrievalRecording& operator=(const RetrievalRecording&) = delete;

    RetrievalObserver& observer() noexcept { return recorder_ ? *recorder_ : unobserved; }

private:
    LoadAccount* account_; // null without a scope
    std::optional<AccountRecorder> recorder_;
};

} // namespace reference::docparser
