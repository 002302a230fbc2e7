#pragma once

#include "tools/refdoc/check/rules/Finding.hpp"
#include "tools/refdoc/check/rules/PathNames.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <vector>

namespace refdoc::check {

/// What a check of the current roots covers.
enum class Scope {
    Everything, ///< a whole documentation: files, and what one says of another
    FilesAlone  ///< a few files out of a documentation, each by itself
};

/// Checks the reference root and the support-package folder of the current settings, in all
/// supported languages. The account of the library's own retrievals decides what became of each
/// file; the schemas decide about its content.
/// \returns  each finding once, without places; in no order
/// \throws std::exception  the check could not be carried out
std::vector<Finding> checkRoots(Scope scope, const PathNames& names, Progress& progress);

/// Checks the text of an installation manifest.
std::vector<Finding> checkManifest(const SourceFile& file);

} // namespace refdoc::check
