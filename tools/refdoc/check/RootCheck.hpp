#pragma once

#include "tools/refdoc/check/findings/Finding.hpp"
#include "tools/refdoc/check/findings/PathNames.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace refdoc::check {

/// What a check of the current roots covers.
enum class Scope {
    Everything, ///< complete documentation: files, and the references between them
    FilesAlone  ///< single files, each by itself
};

/// What a check found.
struct CheckResult {
    Findings findings{};
    ProductNamesByFile products{};         ///< of the files with findings
    std::size_t fileCount = 0;             ///< the files and package entries that were checked
    std::size_t consequenceCount = 0;      ///< findings that were removed: they follow from others
    std::vector<std::string> complaints{}; ///< why something could not be checked
    std::vector<std::string> notes{};      ///< what was not checked because of a finding
};

/// Whether findings that follow from other findings are kept.
enum class Consequences { Hidden, Shown };

/// Checks the reference root and the support-package folder of the current settings, in all
/// supported languages. The account of the library's own retrievals decides what became of each
/// file; the schemas decide about its content. A check without files has a complaint.
/// \param names  paths as they are written in messages
/// \throws std::exception  the check could not be completed
CheckResult checkRoots(Scope scope, Consequences consequences, const PathNames& names,
                       Progress& progress);

} // namespace refdoc::check
