#pragma once

#include "docparser/account/AccountRecorder.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <optional>

namespace reference::docparser {

/// The observer of one call of a retrieval: it records for the current account of the thread and
/// appends the recording when the call ends. Without an account it does nothing.
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
