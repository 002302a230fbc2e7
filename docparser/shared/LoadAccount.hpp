#pragma once

#include "docparser/Export.hpp"
#include "docparser/shared/TextPlace.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace reference::docparser {

/// What became of a file or package entry that a retrieval considered. Each has exactly one fate.
enum class Fate {
    Used,            ///< read; its sections are in the result, none of them had to be combined
    Overlay,         ///< read; at least one of its sections went over one that was there
    Merged,          ///< read; at least one of its sections went under one that was there
    SkippedLanguage, ///< not read: it is a translation into another language than the current one
    SkippedName,     ///< not read: its name is not that of a product file
    Missing,         ///< there is no such file, or the system does not let the process see it
    Unreadable,      ///< it is there and cannot be opened or read whole
    NotRegular,      ///< a folder, pipe, socket or device bears the name
    Malformed,       ///< read, but no JSON or not of the resource format; nothing of it is used
    OverLimit,       ///< larger than platform::readLimits() allows
    Failed           ///< what failed was not the file: memory, or a service of the host
};

/// What a file was considered as.
enum class FileRole {
    Resources, ///< the full resources of one product
    Lookup,    ///< a lookup file, in a folder or in a package
    Package    ///< a zip package of lookup files
};

/// What became of one section of a file that was read.
enum class SectionFate {
    New,      ///< it is the first of its key
    Overlay,  ///< it went over the section that had its key, as translations do
    Merged,   ///< it went under the section that had its key
    KeyTaken, ///< dropped: an earlier section of the same file has its key
    Unused    ///< dropped: the retrieval failed before its turn came
};

/// What became of a record, or of all records of a name, when two sections were combined.
enum class RecordFate {
    AddedName,    ///< kept: the section on top has nothing of the name
    AddedHref,    ///< kept: the section on top has the name, but no record of it with the href
    DroppedHref,  ///< dropped: the section on top has a record of the name with the href
    DroppedCount, ///< dropped: the section on top has no fewer records of the name, so none is
                  ///< added
    Replaced      ///< dropped: the translation has records of the href
};

/// The name of a fate, as it stays from version to version: "skipped-language".
DOCPARSER_EXPORT std::string_view toWord(Fate fate) noexcept;
/// The name of a role, as it stays from version to version: "package".
DOCPARSER_EXPORT std::string_view toWord(FileRole role) noexcept;
/// The name of a section's fate, as it stays from version to version: "key-taken".
DOCPARSER_EXPORT std::string_view toWord(SectionFate fate) noexcept;
/// The name of a record's fate, as it stays from version to version: "added-href".
DOCPARSER_EXPORT std::string_view toWord(RecordFate fate) noexcept;

/// The decision about one record of the section that went under when two were combined.
struct RecordAccount {
    std::u16string name{}; ///< what the record is keyed by: its name; its href in full resources
    std::u16string href{}; ///< the record's link
    RecordFate fate = RecordFate::AddedName; ///< what became of it
    std::size_t file = 0;   ///< the file that it comes from, an index of LoadAccount::files
    std::size_t winner = 0; ///< the file that it lost to; its own when it was kept

    bool operator==(const RecordAccount&) const = default;
};

/// One section of a file.
struct SectionAccount {
    std::u16string key{};  ///< help folder of the main section, base code of the others
    std::string pointer{}; ///< JSON pointer to the section in its file: "" or "/supportPackages/0"
    SectionFate fate = SectionFate::New; ///< what became of it
    bool isInstalled = false;            ///< of lookups: whether its product counts as installed
    std::size_t other = 0; ///< the file of the section that had the key; its own when New
    /// What became of the records below, name by name in code-unit order, when two sections were
    /// combined; of full resources only those that were replaced.
    std::vector<RecordAccount> records{};

    bool operator==(const SectionAccount&) const = default;
};

/// One file or package entry.
struct FileAccount {
    FileRole role = FileRole::Resources; ///< what it was considered as
    std::u16string path{};               ///< as it was opened; of an entry, the path of its package
    std::u16string entry{};     ///< the entry's name in its package, folders included; else empty
    bool isTranslation = false; ///< whether its name is that of a translation
    Fate fate = Fate::Used;     ///< what became of it
    std::string reason{};  ///< why it is not used, in UTF-8; empty when it is, and where nothing
                           ///< is to be added to the fate
    std::string pointer{}; ///< Malformed: JSON pointer (RFC 6901) to what breaks the format
    std::optional<TextPlace> place{};       ///< Malformed: the same as a place of the text
    std::vector<SectionAccount> sections{}; ///< in file order; none of a malformed file

    bool operator==(const FileAccount&) const = default;
};

/// What retrievals did with each file that they considered, in the order of their decisions.
///
/// By contract a file that can't be used is dropped in silence. An account makes each decision
/// visible to those who ask, and changes none:
///
///     LoadAccount account;
///     {
///         const LoadAccount::Scope scope(account);
///         DocResourceParser::getResourceLookupFiles();
///     }
///     for (const FileAccount& file : account.files) ...
///
/// A lookup retrieval first tells what it skipped in the folder, then reads packages, each followed
/// by its entries, then plain files. A full retrieval tells of the English file, then of the
/// language file, in each folder that it tries. When a call throws, the account holds what was
/// decided before.
///
/// Cost: with no scope on the thread, one test of a thread-local variable a file at most; with one,
/// memory for the account, a copy of the text that is being read, and a second pass over it when it
/// is malformed. Should memory end while the account is written, the call ends with std::bad_alloc.
struct DOCPARSER_EXPORT LoadAccount {
    std::vector<FileAccount> files{}; ///< in the order of the decisions

    /// While it lives, the retrievals that are called on its thread report to the account. The
    /// innermost scope of a thread is in force. The account outlives it and is no other thread's.
    class DOCPARSER_EXPORT Scope {
    public:
        /// \param account  what is reported goes to its end; it outlives the scope
        explicit Scope(LoadAccount& account) noexcept;
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        LoadAccount* outer_;
    };
};

} // namespace reference::docparser
