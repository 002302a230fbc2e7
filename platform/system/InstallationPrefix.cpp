#include "platform/system/InstallationPrefix.hpp"

namespace platform {

std::optional<std::filesystem::path>
rootOfInstalledTree(const std::filesystem::path& libraryFolder,
                    const std::filesystem::path& relativeFolder) {
    if (relativeFolder.is_absolute() || !libraryFolder.is_absolute())
        return std::nullopt;
    std::filesystem::path root = libraryFolder;
    const std::filesystem::path normal = relativeFolder.lexically_normal();
    for (auto step = normal.end(); step != normal.begin();) {
        --step;
        // Skips the empty step after a trailing separator, and ".", the form of an empty path.
        if (step->empty() || *step == ".")
            continue;
        if (*step != root.filename())
            return std::nullopt;
        root = root.parent_path();
    }
    return root;
}

} // namespace platform
