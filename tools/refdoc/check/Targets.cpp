#include "tools/refdoc/check/Targets.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/check/TargetOptions.hpp"
#include "tools/refdoc/check/TemporaryRoot.hpp"
#include "tools/refdoc/check/rules/ContentRules.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

namespace refdoc::check {

namespace fs = std::filesystem;

using reference::docparser::DocResourceParser;

namespace {

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

CheckResult checkFolder(const fs::path& folder, const Options& options, const PathNames& names,
                        Progress& progress) {
    return check(Scope::Everything, optionsForFolder(folder, options), names, progress);
}

CheckResult checkFile(const fs::path& file, Options options, PathNames& names, Progress& progress) {
    const TemporaryRoot root(file, folderFor(file, file));
    names.rename(root.folder(), file.parent_path());
    chooseInstallFolder(file.parent_path(), options);
    CheckResult result =
        check(Scope::FilesAlone, optionsForFile(root, std::move(options)), names, progress);
    if (result.fileCount == 0)
        result.complaints.push_back(fmt::format(
            "nothing to check: {} is neither a resource file nor a package with resource files",
            quoted(file.u16string())));
    return result;
}

CheckResult checkPath(const std::u16string& target, const Options& options, PathNames& names,
                      Progress& progress) {
    const fs::path path = existingPath(target, "PATH");
    if (fs::is_directory(path))
        return checkFolder(path, options, names, progress);
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
    result.products.merge(checked.products);
    for (auto& [file, found] : checked.findings)
        addFindings(found, file, result.findings);
    result.fileCount += checked.fileCount;
    result.consequenceCount += checked.consequenceCount;
    std::ranges::move(checked.complaints, std::back_inserter(result.complaints));
    std::ranges::move(checked.notes, std::back_inserter(result.notes));
}

} // namespace refdoc::check
