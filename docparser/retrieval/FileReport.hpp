#pragma once

#include "docparser/io/ReadProblem.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "docparser/shared/LoadAccount.hpp"

#include <cstddef>
#include <exception>
#include <string>

namespace reference::docparser {

/// Tells an account of one file while it is read; without an account it does nothing.
class FileReport {
public:
    /// \param account  null: nobody asks
    /// \param role     with the next three as in FileAccount
    FileReport(LoadAccount* account, FileRole role, const std::u16string& path,
               const std::u16string& entry, bool isTranslation);

    /// Where the reader says why it could not read; null when nobody asks.
    ReadProblem* problem() noexcept { return account_ ? &problem_ : nullptr; }

    /// Keeps the text for as long as the report lives: should the file turn out malformed, the
    /// place is found in it.
    void keepText(const std::string& text);

    /// Where the parser lists the file's sections; null when nobody asks.
    SectionList* sections() noexcept;

    /// Settles the file's fate, unless the use of its sections has settled it.
    /// \param failure  what its reading or use threw; null when all of it was used
    void conclude(const std::exception_ptr& failure);

    /// The file as the account has it. Only with an account.
    FileAccount& file() noexcept { return account_->files[index_]; }
    std::size_t index() const noexcept { return index_; }

private:
    void fail(const std::exception_ptr& failure);
    void setMalformed(std::string reason);

    LoadAccount* account_;
    std::size_t index_ = 0; // of the file in the account
    ReadProblem problem_;
    std::string text_;
};

/// The section of a file that has the key: the first one, for those that follow were dropped when
/// the file was read. There is one.
SectionAccount& sectionAccountOf(FileAccount& file, const std::u16string& key);

} // namespace reference::docparser
