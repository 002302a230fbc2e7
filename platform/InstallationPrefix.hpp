#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace platform {

/// The folder that this library is installed under, without a separator at its end.
///
/// A library that lies in an installed tree answers with the root of that tree, wherever the tree
/// was moved to; one that lies elsewhere, in a build tree say, with the prefix it was built for.
std::u16string installationPrefix();

/// The root of the installed tree that has its libraries in a folder; the disk is not asked.
/// \param libraryFolder  where the library lies, absolute and without a separator at its end
/// \param place          where an installed tree has its libraries: "lib", "lib/x86_64-linux-gnu"
/// \returns  `libraryFolder` without `place` at its end; empty when it does not end so, or when
///           `place` is absolute, since such a library does not move with its tree
std::optional<std::filesystem::path> rootOfInstalledTree(const std::filesystem::path& libraryFolder,
                                                         const std::filesystem::path& place);

} // namespace platform
