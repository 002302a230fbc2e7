#pragma once

#include "tools/refdoc/check/findings/Finding.hpp"
#include "tools/refdoc/check/findings/PathNames.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

namespace refdoc::check {

/// What a check of the current roots covers.
enum class Scope {
    Everything, ///< complete documentation: files, and the references between them
    FilesAlone  ///< single files, each by itself
};

/// Checks the reference root and the support-package folder of the current settings, in all
/// supported languages. The account of the library's own retrievals decides what became of each
/// file; the schemas decide about its content.
/// \param names  paths as they are written in messages
/// \throws std::exception  the check could not be completed
Findings checkRoots(Scope scope, const PathNames& names, Progress& progress);

} // namespace refdoc::check
