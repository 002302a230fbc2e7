#pragma once

#include "tools/refdoc/check/TemporaryRoot.hpp"
#include "tools/refdoc/cli/Options.hpp"

#include <filesystem>
#include <string>
#include <string_view>

namespace refdoc::check {

// What an argument names, as options that make the library read it. Settings for languages and for
// what is installed stay as they are, unless the manifest of an install folder determines them.

/// The name of the file that describes an installation.
inline const std::filesystem::path kManifestName = "installation.json";

/// Returns the absolute path of an argument, without a separator at its end.
/// \param what  the argument's name in messages
/// \throws std::runtime_error  the argument is empty, or there is no such file or folder
std::filesystem::path existingPath(const std::u16string& argument, std::string_view what);

/// Unless --install was given, chooses the nearest folder with a manifest, from `path` upwards.
void chooseInstallFolder(const std::filesystem::path& path, Options& options);

/// Returns the options for a reference root (a folder with "docCatalog") or an install folder (with
/// "help" or installation.json).
/// \param folder  absolute
/// \throws std::runtime_error  it is neither
Options optionsForFolder(const std::filesystem::path& folder, Options options);

/// Returns the options for the root around a single file.
Options optionsForFile(const TemporaryRoot& root, Options options);

/// Returns the folder that a resource file or package belongs to, as the name of its folder says
/// or, in other folders, its content. A file whose content does not tell is a full resource file.
/// \param path  where the file belongs
/// \param file  where it is, absolute
TemporaryRoot::Folder folderFor(const std::filesystem::path& path,
                                const std::filesystem::path& file);

} // namespace refdoc::check
