#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// The texts of the files and package entries that a retrieval has read, read anew.
class FileTexts {
public:
    /// \param account  outlives this and does not change meanwhile
    explicit FileTexts(const reference::docparser::LoadAccount& account);

    const reference::docparser::LoadAccount& account() const noexcept { return account_; }

    /// The text of one file. It costs little to read the entries of a package one after the other.
    ///
    /// Of entries of equal names it is the one that the account means: they stand in the account in
    /// the order of the package.
    /// \param index  of the file in the account
    /// \returns      nothing when the file can't be read any more, or not as a whole
    std::optional<std::string> read(std::size_t index);

private:
    const reference::docparser::LoadAccount& account_;
    std::vector<std::size_t> equalsBefore_; // of each file, how many of its name the account has
                                            // before it
    SourceTexts texts_;
};

} // namespace refdoc
