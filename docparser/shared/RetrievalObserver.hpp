#pragma once

#include "docparser/shared/Fates.hpp"

#include <cstddef>
#include <exception>
#include <string>
#include <vector>

namespace reference::property {
class RefItemLookup;
}

namespace reference::docparser {

/// Observes what a retrieval decides about files, sections and records.
///
/// Each event is reported in the statement that makes the decision. The defaults do nothing, so a
/// plain RetrievalObserver can be passed to a retrieval that nobody observes. An observer never
/// changes a retrieval: no event throws or returns anything. Arguments are valid during the call;
/// in a merge, the name and the target's records stay in place until the next name or section.
///
/// Files nest: the entries of a package are considered and concluded between the fileConsidered()
/// and fileConcluded() of the package. The other events concern the innermost file that has been
/// considered and not yet concluded, the current file.
class RetrievalObserver {
public:
    using LookupRecords = std::vector<property::RefItemLookup>;

    virtual ~RetrievalObserver() = default;

    /// A file or entry is not read because of its name.
    /// \param folder  the folder that contains the file; empty for an entry of the current package
    /// \param name    the file's name, or the entry's name including its folders
    /// \param fate    SkippedLanguage or SkippedName
    virtual void fileSkipped(const std::u16string& /*folder*/, const std::u16string& /*name*/,
                             Fate /*fate*/) noexcept {}

    /// A file or entry is about to be opened; it becomes the current file.
    /// \param name  the file's path; for an entry of the current package, its name
    virtual void fileConsidered(FileRole /*role*/, const std::u16string& /*name*/,
                                bool /*isTranslation*/) noexcept {}

    /// The current file could not be opened or read, so its string is empty or incomplete.
    /// \param cause  null if the file could not be opened and no reason is known
    virtual void readFailed(const std::exception_ptr& /*cause*/) noexcept {}

    /// The current file has been read and is about to be parsed.
    virtual void fileRead(const std::string& /*json*/) noexcept {}

    /// The parser has read a section of the current file. Sections come in file order, the main
    /// section first.
    /// \param isFirstOfKey  false if the section is dropped because the file has one with its key
    virtual void sectionFound(const std::u16string& /*key*/, bool /*isFirstOfKey*/) noexcept {}

    /// A section of the current file becomes part of the result.
    /// \param fate         New, Overlay or Merged; the record events that follow belong to it
    /// \param isInstalled  for lookups: whether the section's product is installed
    virtual void sectionPlaced(const std::u16string& /*key*/, SectionFate /*fate*/,
                               bool /*isInstalled*/) noexcept {}

    /// An English item is dropped because the translation has items with its href.
    virtual void itemReplaced(const std::u16string& /*href*/) noexcept {}

    /// All source records of a name are added to a target section that lacks the name.
    virtual void nameAdded(const std::u16string& /*name*/,
                           const LookupRecords& /*source*/) noexcept {}

    /// A source record was appended to the target's records of the same name.
    /// \param target  the target's records, of which the last is the new one
    /// \param index   the record's index in `source`
    virtual void recordAppended(const std::u16string& /*name*/, const LookupRecords& /*target*/,
                                const LookupRecords& /*source*/, std::size_t /*index*/) noexcept {}

    /// A source record is dropped in favour of the target's records of the same name.
    /// \param index  the record's index in `source`
    virtual void recordDropped(const std::u16string& /*name*/, const LookupRecords& /*target*/,
                               const LookupRecords& /*source*/, std::size_t /*index*/) noexcept {}

    /// Nothing more happens to the current file.
    /// \param failure  what reading, parsing or using it threw; null if all of it was used, or if
    ///                 it could not be opened
    virtual void fileConcluded(const std::exception_ptr& /*failure*/) noexcept {}
};

/// The observer of retrievals that are not observed.
inline RetrievalObserver unobserved;

} // namespace reference::docparser
