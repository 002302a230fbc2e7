#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// Reads the texts of the files and package entries of a retrieval again.
class FileTexts {
public:
    /// \param account  must outlive this object and not change
    explicit FileTexts(const reference::docparser::LoadAccount& account);

    const reference::docparser::LoadAccount& account() const noexcept { return account_; }

    /// Returns the text of one file. Consecutive reads of entries of one package open it once.
    ///
    /// Entries of a package that have the same name are in the account in the order of the package.
    /// \param index  of the file in the account
    /// \returns      nothing if the file can no longer be read completely
    std::optional<std::string> read(std::size_t index);

private:
    const reference::docparser::LoadAccount& account_;
    std::vector<std::size_t> equalsBefore_; // for each file, the number of earlier files with its
                                            // name
    SourceTexts texts_;
};

} // namespace refdoc
