#pragma once

#include "tools/refdoc/check/rules/Finding.hpp"
#include "tools/refdoc/check/rules/PathNames.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <string>
#include <vector>

namespace refdoc::check {

/// Checks what a word on the command line names: a reference root (a folder with "docCatalog"), an
/// install folder (with "help" or installation.json), an installation.json, a package, or a
/// resource file. Of a resource file the folder that it lies in tells whether it is a lookup file,
/// else its content does.
///
/// Without --install, the nearest installation.json above says which languages there are and what
/// is installed. The settings of the library are those of this target afterwards.
/// \throws std::exception  there is nothing of the kind, or the check could not be carried out
std::vector<Finding> checkTarget(const std::u16string& target, const Options& options,
                                 const PathNames& names, Progress& progress);

} // namespace refdoc::check
