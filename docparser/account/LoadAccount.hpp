#pragma once

#include "docparser/Export.hpp"
#include "docparser/shared/Fates.hpp"
#include "docparser/shared/TextPlace.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace reference::docparser {

/// Returns the word for a fate, such as "skipped-language". It never changes between versions.
DOCPARSER_EXPORT std::string_view toWord(Fate fate) noexcept;
/// Returns the word for a role, such as "package". It never changes between versions.
DOCPARSER_EXPORT std::string_view toWord(FileRole role) noexcept;
/// Returns the word for a section's fate, such as "key-taken". It never changes between versions.
DOCPARSER_EXPORT std::string_view toWord(SectionFate fate) noexcept;
/// Returns the word for a record's fate, such as "added-href". It never changes between versions.
DOCPARSER_EXPORT std::string_view toWord(RecordFate fate) noexcept;

/// What became of one record when two sections with the same key were combined. One section is on
/// top: its records take precedence. The record belongs to the section underneath.
struct RecordAccount {
    std::u16string name{}; ///< the key of the record: its name, or its href in full resources
    std::u16string href{}; ///< the record's link
    RecordFate fate = RecordFate::AddedName; ///< what became of it
    std::size_t file = 0;   ///< the file that it comes from, an index into LoadAccount::files
    std::size_t winner = 0; ///< the file that it lost to; its own file if it was kept

    bool operator==(const RecordAccount&) const = default;
};

/// One section of a file.
struct SectionAccount {
    std::u16string key{};  ///< help folder of the main section, else base code
    std::string pointer{}; ///< JSON pointer to the section in its file: "" or "/supportPackages/0"
    SectionFate fate = SectionFate::New; ///< what became of it
    bool isInstalled = false;            ///< for lookups: whether its product is installed
    /// The file of the earlier section with the key; this file if there is none.
    std::size_t other = 0;
    /// What became of the records of the section underneath, sorted by name in code-unit order. For
    /// full resources, this lists only the records that were replaced.
    std::vector<RecordAccount> records{};

    bool operator==(const SectionAccount&) const = default;
};

/// One file or package entry.
struct FileAccount {
    FileRole role = FileRole::Resources; ///< what it was considered as
    std::u16string path{};      ///< as it was opened; for an entry, the path of its package
    std::u16string entry{};     ///< the entry's name including its folders; empty for a file
    bool isTranslation = false; ///< whether its name is that of a translation
    Fate fate = Fate::Used;     ///< what became of it
    std::string reason{};       ///< why it is not used, in UTF-8; empty if the fate says everything
    std::string pointer{};      ///< Malformed: JSON pointer (RFC 6901) to the invalid value
    std::optional<TextPlace> place{};       ///< Malformed: the position of the error
    std::vector<SectionAccount> sections{}; ///< in file order; empty for a malformed file

    bool operator==(const FileAccount&) const = default;
};

/// Records what retrievals decided about each file that they considered.
///
/// The library silently skips files that it cannot use. An account shows each decision without
/// changing it: results, exceptions, log lines and the order of calls to the host stay the same.
///
///     LoadAccount account;
///     {
///         const LoadAccount::Scope scope(account);
///         DocResourceParser::getResourceLookupFiles();
///     }
///     for (const FileAccount& file : account.files) ...
///
/// Each call records separately and appends its files to the account when it returns or throws. A
/// call that a log sink or host service makes during another call therefore comes first, and
/// indices always refer to files of the same call.
///
/// A lookup retrieval first reports what it skipped in the folder, then packages, each followed by
/// its entries, then plain files. A full retrieval reports the English file, then the language
/// file, for each folder that it tries.
///
/// Cost: without a scope on the thread, one read of a thread-local variable per call and a few
/// virtual calls that do nothing. With a scope, the memory of the account, a copy of the file that
/// is being read, and another pass over it if it is malformed.
struct DOCPARSER_EXPORT LoadAccount {
    std::vector<FileAccount> files{}; ///< in the order of the decisions

    /// False if the recording of a call ended early because memory ran out. The files that were
    /// being recorded at that moment have the fate Failed.
    bool isComplete = true;

    /// Records the retrievals that its thread calls during its lifetime. If scopes nest, only the
    /// innermost one records.
    class DOCPARSER_EXPORT Scope {
    public:
        /// \param account  receives the files; must outlive the scope, and other threads must not
        ///                 use it
        explicit Scope(LoadAccount& account) noexcept;
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        LoadAccount* outer_;
    };
};

} // namespace reference::docparser
