#include "tools/refdoc/check/Targets.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/RootCheck.hpp"
#include "tools/refdoc/check/TemporaryRoot.hpp"
#include "tools/refdoc/check/rules/ContentRules.hpp"
#include "tools/refdoc/check/schema/Schema.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/parse.hpp>

#include <algorithm>
#include <filesystem>
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

Findings check(Scope scope, const Options& options, const PathNames& names, Progress& progress) {
    DocResourceParser::restoreDefaultSettings();
    applyOptions(options);
    return checkRoots(scope, names, progress);
}

Findings checkFolder(const fs::path& folder, Options options, const PathNames& names,
                     Progress& progress) {
    if (fs::exists(folder / "docCatalog")) {
        options.referenceRoot = folder.u16string();
        if (!options.installFolder)
            options.installFolder = findInstallFolder(folder);
    } else if (fs::exists(folder / "help") || fs::exists(folder / kManifestName)) {
        options.installFolder = folder.u16string();
        options.referenceRoot.reset();
    } else {
        throw std::runtime_error(quoted(folder.u16string()) +
                                 " is neither a reference root nor an install folder: it has no "
                                 "\"docCatalog\", \"help\" or \"installation.json\"");
    }
    return check(Scope::Everything, options, names, progress);
}

// Returns whether the text is that of a lookup file: its items have names, and no keys that only
// full resources have. A file without items is a full resource file.
bool looksLikeLookup(const std::string& text) {
    json::error_code error;
    const json::value document = json::parse(text, error);
    const json::value* items =
        document.is_object() ? document.get_object().if_contains("refItems") : nullptr;
    if (!items || !items->is_array() || items->get_array().empty())
        return false;
    const auto isFullKey = [](const json::key_value_pair& member) {
        const SchemaNode& section = *resourceSchema().root().find("refItems")->node->items;
        const SchemaNode& record = *lookupSchema().root().find("refItems")->node->items;
        return section.find(member.key()) && !record.find(member.key());
    };
    const json::object* item = items->get_array().front().if_object();
    return item && item->contains("name") && std::ranges::none_of(*item, isFullKey);
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

Findings checkManifestFile(const SourceFile& file) {
    Findings findings;
    std::vector<Finding> found = checkManifest(SourceTexts().read(file));
    addFindings(found, file, findings);
    return findings;
}

Findings checkFile(const fs::path& file, Options options, PathNames& names, Progress& progress) {
    const TemporaryRoot root(file, folderFor(file));
    names.rename(root.folder(), file.parent_path());
    if (!options.installFolder)
        options.installFolder = findInstallFolder(file.parent_path());
    options.referenceRoot = root.path().u16string();
    options.supportFolder = (root.path() / "none").u16string();
    return check(Scope::FilesAlone, options, names, progress);
}

Findings checkPath(const std::u16string& target, const Options& options, PathNames& names,
                   Progress& progress) {
    const fs::path path = fs::absolute(fs::path(target)).lexically_normal();
    if (fs::is_directory(path)) {
        const fs::path folder = path.filename().empty() ? path.parent_path() : path;
        return checkFolder(folder, options, names, progress);
    }
    if (!fs::exists(path))
        throw std::runtime_error("file or folder " + quoted(target) + " does not exist");
    if (path.filename() == kManifestName)
        return checkManifestFile({.path = path.u16string()});
    return checkFile(path, options, names, progress);
}

} // namespace

void checkTarget(const std::u16string& target, const Options& options, PathNames& names,
                 Progress& progress, Findings& findings) {
    for (auto& [file, found] : checkPath(target, options, names, progress))
        addFindings(found, file, findings);
}

} // namespace refdoc::check
