#include "tools/refdoc/check/rules/FileRules.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace refdoc::check {

namespace fs = std::filesystem;

using fl::i18n::to_string;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::FileRole;
using reference::docparser::SectionAccount;
using reference::docparser::SectionFate;

namespace {

constexpr Rule kRepeatedSectionKey{
    "repeated-section-key", Severity::Error, "two sections of a file have the same key",
    "If several sections of a file have the same key, the first is kept. The others are dropped "
    "with all their items. Give each support package its own `baseCode`.",
    Relation::Independent};

constexpr Rule kBaseCodeIsHelpFolder{
    "base-code-is-help-folder", Severity::Error,
    "the base code of a support package is the help folder of the main section",
    "The key of the main section is its `helpFolder`. The key of a support package is its "
    "`baseCode`. If the two are equal, the support package is dropped with all its items. Change "
    "the `baseCode`.",
    Relation::Independent};

constexpr Rule kMisnamedFolder{
    "misnamed-folder", Severity::Error, "a folder of resource files has the wrong name",
    "A reference root has its full resource files in `docCatalog/referenceapi` and its lookup "
    "files in `docCatalog/referenceapi_lookup`. There is no such folder, but one with a similar "
    "name, whose files are not read. Most systems distinguish upper and lower case in names. "
    "Rename the folder.",
    Relation::CostsRoot};

constexpr Rule kNoLookupFolder{
    "no-lookup-folder", Severity::Warning, "there are full resources but no lookup files",
    "The items document names, but the folder `docCatalog/referenceapi_lookup` does not exist, so "
    "they can't be found by name. Add the folder and its lookup files.",
    Relation::CostsRoot};

constexpr Rule kUnreadableFile{
    "unreadable-file", Severity::Error, "the file can't be read",
    "A file that can't be opened or read completely is skipped, like a missing file. Check its "
    "permissions and, if it is a link, its target."};

constexpr Rule kNotAFile{"not-a-file", Severity::Error,
                         "a folder or device has the name of a resource file",
                         "Only regular files are read. Folders, pipes, sockets and devices are "
                         "skipped. Rename or remove it."};

constexpr Rule kOverLimit{
    "over-limit", Severity::Error, "the file is larger than the limit",
    "Files that exceed a limit are skipped: 1 GiB for a file or a decompressed entry, 4 GiB for "
    "all entries of a package together, 64 MiB for the directory of a package. Split the product."};

constexpr Rule kUnreadablePackage{
    "unreadable-package", Severity::Error, "the package can't be opened",
    "A package that is damaged or not a zip archive is skipped with all its entries. Create the "
    "package again."};

constexpr Rule kUnreadableEntry{
    "unreadable-entry", Severity::Error, "an entry of the package can't be read",
    "An entry that is encrypted, damaged or compressed with an unknown method is skipped. The "
    "other entries of the package are read. Create the package again, with deflated or stored "
    "entries."};

std::string withReason(std::string_view message, std::string_view reason) {
    return reason.empty() ? std::string(message) : fmt::format("{}: {}", message, reason);
}

// The library's reason without the path of the package, which the finding names already.
std::string_view causeOf(const FileAccount& file) {
    const std::string_view reason = file.reason;
    const std::size_t path = reason.find(to_string(file.path));
    const std::size_t cause = path == reason.npos ? path : reason.find(": ", path);
    return cause == reason.npos ? reason : reason.substr(cause + 2);
}

// Everything except these two features is damage, which the library reports in many ways: a wrong
// size, a wrong checksum, or an invalid compressed stream.
std::string_view entryCause(const FileAccount& file) {
    const std::string_view cause = causeOf(file);
    const bool isUnsupported =
        cause == "it is encrypted" || cause.starts_with("compression method ");
    return isUnsupported ? cause : "damaged data";
}

bool isLink(const std::u16string& path) {
    std::error_code ignored; // The library skips a file that cannot be seen.
    return fs::is_symlink(path, ignored);
}

Finding unreadable(const FileAccount& file) {
    if (file.role == FileRole::Package)
        return {.rule = &kUnreadablePackage,
                .message = withReason("the package can't be opened and is skipped", causeOf(file))};
    if (!file.entry.empty())
        return {.rule = &kUnreadableEntry,
                .message = withReason("the entry can't be read", entryCause(file))};
    if (file.fate == Fate::Missing)
        return {.rule = &kUnreadableFile,
                .message = "the file is a link to a file that does not exist"};
    return {.rule = &kUnreadableFile,
            .message = withReason("the file can't be read and is skipped", file.reason)};
}

// The section that a later one of its file lost its key to.
const SectionAccount& ownerOf(const FileAccount& file, const std::u16string& key) {
    return *std::ranges::find(file.sections, key, &SectionAccount::key);
}

Finding droppedSection(const FileAccount& account, const SourceFile& file,
                       const SectionAccount& section) {
    const std::string key = to_string(section.key);
    const SectionAccount& owner = ownerOf(account, section.key);
    Finding finding{.rule = &kRepeatedSectionKey,
                    .location = {.pointer = section.pointer + "/baseCode"},
                    .message = fmt::format("the section is dropped: an earlier section of the file "
                                           "has the key \"{}\"",
                                           key),
                    .identity = key};
    std::string_view ownerKey = "/baseCode";
    if (owner.pointer.empty()) {
        finding.rule = &kBaseCodeIsHelpFolder;
        finding.message = fmt::format(
            "the section is dropped: its base code \"{}\" is the help folder of the main section",
            key);
        ownerKey = "/helpFolder";
    }
    finding.related.push_back(
        {file, {.pointer = owner.pointer + std::string(ownerKey)}, "the section that is kept"});
    return finding;
}

// \param areLookupsMissing  whether it is the folder of lookup files, and items need them
void addFolderFinding(const fs::path& folder, bool areLookupsMissing, Findings& findings) {
    std::error_code ignored; // The library skips a folder that cannot be seen.
    if (fs::exists(folder, ignored))
        return;
    const std::string name = to_string(folder.filename().u16string());
    const std::vector<std::u16string> misnamed = nearFolders(folder);
    if (!misnamed.empty())
        findings[{.path = (folder.parent_path() / misnamed.front()).u16string()}].push_back(
            {.rule = &kMisnamedFolder,
             .message = fmt::format("the folder is ignored: its name must be \"{}\"", name)});
    else if (areLookupsMissing)
        findings[{.path = folder.parent_path().u16string()}].push_back(
            {.rule = &kNoLookupFolder,
             .message = fmt::format(
                 "the folder \"{}\" does not exist: no item can be found by its name", name)});
}

} // namespace

std::span<const Rule* const> fileRules() {
    static constexpr const Rule* kRules[] = {
        &kRepeatedSectionKey, &kBaseCodeIsHelpFolder, &kMisnamedFolder,
        &kNoLookupFolder,     &kUnreadableFile,       &kNotAFile,
        &kOverLimit,          &kUnreadablePackage,    &kUnreadableEntry};
    return kRules;
}

bool wasRead(const FileAccount& account) {
    return account.role != FileRole::Package &&
           (account.fate == Fate::Used || account.fate == Fate::Overlay ||
            account.fate == Fate::Merged || account.fate == Fate::Malformed);
}

std::optional<Finding> findUnreadable(const FileAccount& account) {
    switch (account.fate) {
    case Fate::Missing:
        // A full resource file is optional. A lookup file was found in its folder before.
        if (account.role == FileRole::Resources && !isLink(account.path))
            return std::nullopt;
        return unreadable(account);
    case Fate::Unreadable: return unreadable(account);
    case Fate::NotRegular:
        return Finding{.rule = &kNotAFile,
                       .message = "a folder, pipe or device has the name of a resource file"};
    case Fate::OverLimit:
        return Finding{.rule = &kOverLimit,
                       .message = withReason("the file is not read", causeOf(account))};
    case Fate::Failed: throw std::runtime_error(withReason("the check failed", account.reason));
    case Fate::Used:
    case Fate::Overlay:
    case Fate::Merged:
    case Fate::Malformed:
    case Fate::SkippedLanguage:
    case Fate::SkippedName: return std::nullopt;
    }
    return std::nullopt;
}

std::vector<Finding> findDroppedSections(const FileAccount& account, const SourceFile& file) {
    std::vector<Finding> findings;
    for (const SectionAccount& section : account.sections) {
        if (section.fate == SectionFate::KeyTaken)
            findings.push_back(droppedSection(account, file, section));
    }
    return findings;
}

void addFolderFindings(bool hasNames, Findings& findings) {
    const auto roots = DocResourceParser::getReferenceRoots();
    addFolderFinding(fs::path(roots->lookupFolder), hasNames, findings);
    // Lookup files alone are complete: full resources are installed with their products.
    addFolderFinding(fs::path(roots->referenceApiFolder), /*areLookupsMissing=*/false, findings);
}

} // namespace refdoc::check
