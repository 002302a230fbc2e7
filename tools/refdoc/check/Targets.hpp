#pragma once

#include "tools/refdoc/check/RootCheck.hpp"
#include "tools/refdoc/check/findings/PathNames.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <string>

namespace refdoc::check {

/// Checks the roots that the options choose.
/// \throws std::exception  the check could not be completed
CheckResult checkCurrentRoots(const Options& options, const PathNames& names, Progress& progress);

/// Checks what an argument names: a reference root (a folder with "docCatalog"), an install folder
/// (with "help" or installation.json), an installation.json, a package, or a resource file. A
/// resource file is a lookup file if its folder or, in other folders, its content says so.
///
/// Without --install, the nearest installation.json above determines the languages and what is
/// installed. Afterwards the settings of the library are those of this target.
/// \param names   receives the names of temporary folders
/// \param result  receives the findings, and a complaint if there is no such file or folder or if
///                the check could not be completed
void checkTarget(const std::u16string& target, const Options& options, PathNames& names,
                 Progress& progress, CheckResult& result);

} // namespace refdoc::check
