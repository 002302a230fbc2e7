#pragma once

#include "tools/refdoc/pages/SiteModel.hpp"

#include <vector>

namespace refdoc::site {

/// Returns what the start page in the language of an edition shows of its product: the sections of
/// the edition, or all pages of the product if the edition is broken.
/// \throws whatever the host services throw
std::vector<SectionSummary> summariesOf(const Product& product, const Edition& edition);

} // namespace refdoc::site
