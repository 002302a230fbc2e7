#pragma once

#include "docparser/LoadAccount.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// The texts of the files and package entries that a retrieval has read, read anew.
class FileTexts {
public:
    /// \param account  outlives this and does not change meanwhile
    explicit FileTexts(const reference::docparser::LoadAccount& account);
    ~FileTexts();
    FileTexts(const FileTexts&) = delete;
    FileTexts& operator=(const FileTexts&) = delete;

    const reference::docparser::LoadAccount& account() const noexcept { return account_; }

    /// The text of one file.
    ///
    /// Of entries of equal names it is the one that the account means: they stand in the account in
    /// the order of the package. The package of the last entry stays open, so that it costs little
    /// to read its entries one after the other.
    /// \param index  of the file in the account
    /// \returns      nothing when the file can't be read any more, or not as a whole
    std::optional<std::string> read(std::size_t index);

private:
    class OpenPackage;

    std::string readEntry(std::size_t index);

    const reference::docparser::LoadAccount& account_;
    std::vector<std::size_t> equalsBefore_; // of each file, how many of its name the account has
                                            // before it
    std::unique_ptr<OpenPackage> package_;
};

} // namespace refdoc
