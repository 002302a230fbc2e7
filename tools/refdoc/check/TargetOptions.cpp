#include "tools/refdoc/check/TargetOptions.hpp"

#include "tools/refdoc/check/rules/ContentRules.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/parse.hpp>
#include <fmt/format.h>

#include <optional>
#include <stdexcept>
#include <utility>

namespace refdoc::check {

namespace fs = std::filesystem;
namespace json = boost::json;

namespace {

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

bool looksLikeLookup(const std::string& text) {
    json::error_code error;
    const json::value document = json::parse(text, error);
    return roleOf(document) == reference::docparser::FileRole::Lookup;
}

} // namespace

fs::path existingPath(const std::u16string& argument, std::string_view what) {
    if (argument.empty())
        throw std::runtime_error(
            fmt::format("the {} is empty; for the current folder, write \".\"", what));
    const fs::path path = fs::absolute(fs::path(argument)).lexically_normal();
    if (!fs::exists(path))
        throw std::runtime_error("file or folder " + quoted(argument) + " does not exist");
    return path.filename().empty() ? path.parent_path() : path;
}

// A path says more about the install folder than the environment.
void chooseInstallFolder(const fs::path& path, Options& options) {
    if (options.values.has("--install"))
        return;
    if (std::optional<std::u16string> found = findInstallFolder(path))
        options.installFolder = std::move(found);
}

Options optionsForFolder(const fs::path& folder, Options options) {
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
    return options;
}

Options optionsForFile(const TemporaryRoot& root, Options options) {
    options.referenceRoot = root.path().u16string();
    options.supportFolder = (root.path() / "none").u16string();
    return options;
}

TemporaryRoot::Folder folderFor(const fs::path& path, const fs::path& file) {
    const fs::path folder = path.parent_path().filename();
    if (folder == "referenceapi_lookup")
        return TemporaryRoot::Folder::Lookup;
    if (folder == "referenceapi")
        return TemporaryRoot::Folder::Resources;
    SourceTexts texts;
    const SourceFile source{.path = file.u16string()};
    const bool isPackage =
        path.extension() == ".zip" || texts.readStart(source).starts_with("PK\x03\x04");
    return isPackage || looksLikeLookup(texts.read(source)) ? TemporaryRoot::Folder::Lookup
                                                            : TemporaryRoot::Folder::Resources;
}

} // namespace refdoc::check
