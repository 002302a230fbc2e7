#pragma once

#include "tools/refdoc/pages/ProductFindings.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <map>
#include <set>
#include <string>

namespace refdoc::site {

/// What `check` finds with the current settings, by the pages that show it.
struct SiteFindings {
    std::map<std::u16string, ProductFindings> products{}; ///< by name, those that have findings
    StartFindings start{};
};

/// Checks the current roots.
/// \param products  the names of those that have pages
/// \throws std::exception  the check could not be completed
SiteFindings findFindings(const std::set<std::u16string>& products, Progress& progress);

} // namespace refdoc::site
