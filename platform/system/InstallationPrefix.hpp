#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace platform {

/// Returns the folder that this library is installed under, without a separator at its end.
///
/// If the library is shared and lies in an installed tree, that is the root of the tree, even after
/// the tree was moved; otherwise, in a build tree for example, the prefix that the library was
/// built for.
std::u16string installationPrefix();

/// Returns the root of the installed tree that has its libraries in a folder. Does not access the
/// disk.
/// \param libraryFolder   the folder of the library, absolute and without a separator at its end
/// \param relativeFolder  where an installed tree has its libraries: "lib", "lib/x86_64-linux-gnu"
/// \returns  `libraryFolder` without `relativeFolder` at its end; empty if it does not end so, or
///           if `relativeFolder` is absolute, because such a library does not move with its tree
std::optional<std::filesystem::path>
rootOfInstalledTree(const std::filesystem::path& libraryFolder,
                    const std::filesystem::path& relativeFolder);

} // namespace platform
