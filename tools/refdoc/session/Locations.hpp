#pragma once

#include "tools/refdoc/cli/Options.hpp"

#include <optional>
#include <string>

namespace refdoc {

/// Reads the options of a command line, and fills in the install folder, the reference root and the
/// language that it leaves open.
///
/// Options win over the environment variables REFDOC_INSTALL, REFDOC_ROOT and REFDOC_LANG, of which
/// an empty one counts as not set. --install also wins over REFDOC_ROOT, because it determines a
/// root. If none of them names a folder and the command reads the current root, the current folder
/// is the reference root if it contains the folder "docCatalog", and the install folder if it
/// contains "installation.json".
Options resolveOptions(const CommandLine& line);

/// Returns the note that the current folder is read; absent if it was not chosen because of what it
/// contains.
/// \param options  the result of resolveOptions()
std::optional<std::string> currentFolderNote(const Options& options);

} // namespace refdoc
