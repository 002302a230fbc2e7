#include "tools/refdoc/check/Targets.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/TemporaryRoot.hpp"
#include "tools/refdoc/check/rules/ContentRules.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/parse.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace refdoc::check {

namespace fs = std::filesystem;
namespace json = boost::json;

using reference::docparser::DocResourceParser;

namespace {

const fs::path kManifestName = "installation.json";
constexpr int kMostLevelsUp = 6; // from a support package's file to the install folder

// Returns the nearest folder with a manifest, from `path` upwards.
std::optional<std::u16string> findInstallFolder(fs::path path) {
    for (int level = 0; level <= kMostLevelsUp && path != path.parent_path(); ++level) {
        if (fs::exists(path / kManifestName))
            return path.u16string();
        path = path.parent_path();
    }
    return std::nullopt;
}

// Unless an option names the install folder, a path says more about it than the environment.
void chooseInstallFolder(const fs::path& path, Options& options) {
    if (options.values.has("--install"))
        return;
    if (std::optional<std::u16string> found = findInstallFolder(path))
        options.installFolder = std::move(found);
}

CheckResult checkManifestFile(const fs::path& path) {
    const SourceFile file{.path = path.u16string()};
    CheckResult result{.fileCount = 1};
    std::vector<Finding> found = checkManifest(file, SourceTexts().read(file));
    addFindings(found, file, result.findings);
    return result;
}

Consequences consequencesOf(const Options& options) {
    return options.values.has("--show-consequences") ? Consequences::Shown : Consequences::Hidden;
}

bool hasErrors(const Findings& findings) {
    return std::ranges::any_of(findings, [](const auto& file) {
        return std::ranges::any_of(file.second, [](const Finding& finding) {
            return finding.rule->severity == Severity::Error;
        });
    });
}

CheckResult check(Scope scope, const Options& options, const PathNames& names, Progress& progress) {
    DocResourceParser::restoreDefaultSettings();
    try {
        applyOptions(options);
    } catch (const std::runtime_error&) {
        const fs::path folder(selectedServices(options)->installPath());
        CheckResult result = checkManifestFile(folder / kManifestName);
        if (!hasErrors(result.findings))
            throw;
        result.notes.push_back("only installation.json was checked, because it determines the "
                               "languages and the installed products");
        return result;
    }
    return checkRoots(scope, consequencesOf(options), names, progress);
}

CheckResult checkFolder(const fs::path& folder, Options options, const PathNames& names,
                        Progress& progress) {
    if (fs::exists(folder / "docCatalog")) {
        options.referenceRoot = folder.u16string();
        chooseInstallFolder(folder, options);
    } else if (fs::exists(folder / "help") || fs::exists(folder / kManifestName)) {
        options.installFolder = folder.u16string();
        options.referenceRoot.reset();
    } else {
        throw std::runtime_error(quoted(folder.u16string()) +
                                 " is neither a reference root nor an install folder: it has no "
                                 "\"docCatalog\", \"help\" or \"installation.json\"" +
                                 didYouMean(nearFolders(folder / "docCatalog")));
    }
    return check(Scope::Everything, options, names, progress);
}

// A file whose content does not tell is a full resource file.
bool looksLikeLookup(const std::string& text) {
    json::error_code error;
    const json::value document = json::parse(text, error);
    return roleOf(document) == reference::docparser::FileRole::Lookup;
}

TemporaryRoot::Folder folderFor(const fs::path& file) {
    const fs::path folder = file.parent_path().filename();
    if (folder == "referenceapi_lookup")
        return TemporaryRoot::Folder::Lookup;
    if (folder == "referenceapi")
        return TemporaryRoot::Folder::Resources;
    SourceTexts texts;
    const SourceFile source{.path = file.u16string()};
    const bool isPackage =
        file.extension() == ".zip" || texts.readStart(source).starts_with("PK\x03\x04");
    return isPackage || looksLikeLookup(texts.read(source)) ? TemporaryRoot::Folder::Lookup
                                                            : TemporaryRoot::Folder::Resources;
}

CheckResult checkFile(const fs::path& file, Options options, PathNames& names, Progress& progress) {
    const TemporaryRoot root(file, folderFor(file));
    names.rename(root.folder(), file.parent_path());
    chooseInstallFolder(file.parent_path(), options);
    options.referenceRoot = root.path().u16string();
    options.supportFolder = (root.path() / "none").u16string();
    CheckResult result = check(Scope::FilesAlone, options, names, progress);
    if (result.fileCount == 0)
        result.complaints.push_back(fmt::format(
            "nothing to check: {} is neither a resource file nor a package with resource files",
            quoted(file.u16string())));
    return result;
}

CheckResult checkPath(const std::u16string& target, const Options& options, PathNames& names,
                      Progress& progress) {
    if (target.empty())
        throw std::runtime_error("the PATH is empty; for the current folder, write \".\"");
    const fs::path path = fs::absolute(fs::path(target)).lexically_normal();
    if (fs::is_directory(path)) {
        const fs::path folder = path.filename().empty() ? path.parent_path() : path;
        return checkFolder(folder, options, names, progress);
    }
    if (!fs::exists(path))
        throw std::runtime_error("file or folder " + quoted(target) + " does not exist");
    if (path.filename() == kManifestName)
        return checkManifestFile(path);
    return checkFile(path, options, names, progress);
}

} // namespace

CheckResult checkCurrentRoots(const Options& options, const PathNames& names, Progress& progress) {
    return check(Scope::Everything, options, names, progress);
}

void checkTarget(const std::u16string& target, const Options& options, PathNames& names,
                 Progress& progress, CheckResult& result) {
    CheckResult checked;
    try {
        checked = checkPath(target, options, names, progress);
    } catch (const std::runtime_error& error) {
        checked.complaints.emplace_back(error.what());
    }
    for (auto& [file, found] : checked.findings)
        addFindings(found, file, result.findings);
    result.fileCount += checked.fileCount;
    result.consequenceCount += checked.consequenceCount;
    std::ranges::move(checked.complaints, std::back_inserter(result.complaints));
    std::ranges::move(checked.notes, std::back_inserter(result.notes));
}

} // namespace refdoc::check
