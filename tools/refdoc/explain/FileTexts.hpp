#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// Reads the files and package entries of a retrieval again.
class FileTexts {
public:
    /// \param account  must outlive this object and stay unchanged
    explicit FileTexts(const reference::docparser::LoadAccount& account);

    const reference::docparser::LoadAccount& account() const noexcept { return account_; }

    /// Returns the content of one file; nothing if it can no longer be read. Reading the entries of
    /// a package one after the other is cheap.
    /// \param index  of the file in the account
    std::optional<std::string> read(std::size_t index);

private:
    const reference::docparser::LoadAccount& account_;
    std::vector<SourceFile> files_;
    SourceTexts texts_;
};

} // namespace refdoc
