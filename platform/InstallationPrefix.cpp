#include "platform/InstallationPrefix.hpp"

namespace platform {

std::optional<std::filesystem::path> rootOfInstalledTree(const std::filesystem::path& libraryFolder,
                                                         const std::filesystem::path& place) {
    if (place.is_absolute() || !libraryFolder.is_absolute())
        return std::nullopt;
    std::filesystem::path root = libraryFolder;
    const std::filesystem::path normal = place.lexically_normal();
    for (auto step = normal.end(); step != normal.begin();) {
        --step;
        // A separator at the end leaves an empty step; "." is what is left of no place at all.
        if (step->empty() || *step == ".")
            continue;
        if (*step != root.filename())
            return std::nullopt;
        root = root.parent_path();
    }
    return root;
}

} // namespace platform
