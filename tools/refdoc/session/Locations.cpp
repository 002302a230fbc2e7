#include "tools/refdoc/session/Locations.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/system/NativePath.hpp"
#include "platform/terminal/ProgramText.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

namespace refdoc {

namespace {

constexpr const char* kCurrentFolder = "current folder";

// Sets a value that no option has set from the environment, and its origin.
void resolve(std::optional<std::u16string>& value, std::string_view option,
             const std::string& variable, std::string& origin) {
    if (value) {
        origin = fmt::format("option {}", option);
        return;
    }
    const std::optional<std::string> found = platform::environmentVariable(variable);
    if (!found || found->empty())
        return;
    value = fl::i18n::to_ustring(*found);
    origin = fmt::format("environment variable {}", variable);
}

void useEnvironment(Options& options) {
    Origins& origins = options.origins;
    const bool isRootDetermined = options.installFolder && !options.referenceRoot;
    resolve(options.language, "--lang", "REFDOC_LANG", origins.language);
    resolve(options.installFolder, "--install", "REFDOC_INSTALL", origins.installFolder);
    if (!isRootDetermined)
        resolve(options.referenceRoot, "--root", "REFDOC_ROOT", origins.referenceRoot);
    if (!options.referenceRoot)
        origins.referenceRoot = origins.installFolder;
}

void useCurrentFolder(Options& options) {
    std::error_code ignored; // a folder that cannot be examined is not chosen
    const std::filesystem::path folder = std::filesystem::current_path(ignored);
    if (std::filesystem::exists(folder / "installation.json", ignored)) {
        options.installFolder = platform::fromNativePath(folder.native());
        options.origins.installFolder = kCurrentFolder;
        options.origins.referenceRoot = kCurrentFolder;
    }
    if (std::filesystem::is_directory(folder / "docCatalog", ignored)) {
        options.referenceRoot = platform::fromNativePath(folder.native());
        options.origins.referenceRoot = kCurrentFolder;
    }
}

} // namespace

Options resolveOptions(const CommandLine& line) {
    Options options = readOptions(line);
    useEnvironment(options);
    if (!options.installFolder && !options.referenceRoot && readsRoot(line))
        useCurrentFolder(options);
    return options;
}

std::optional<std::string> currentFolderNote(const Options& options) {
    if (options.origins.referenceRoot != kCurrentFolder)
        return std::nullopt;
    const std::string_view content = !options.referenceRoot   ? "\"installation.json\""
                                     : !options.installFolder ? "\"docCatalog\""
                                                              : "\"docCatalog\" and "
                                                                "\"installation.json\"";
    return fmt::format("note: reading the current folder, because it contains {}{}", content,
                       kOtherFolders);
}

} // namespace refdoc
