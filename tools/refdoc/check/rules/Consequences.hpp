#pragma once

#include "tools/refdoc/check/findings/Finding.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace refdoc::check {

/// Removes the findings that follow from others: those about a product with a damaged or misnamed
/// file, and those about a link or product that the text of a damaged file mentions. A broken
/// package, for example, leaves the items of its product without lookup records.
///
/// Which rules have consequences, and of which files, is their Relation.
/// \param languages  all supported languages
/// \returns          the number of findings that were removed
std::size_t removeConsequences(const std::vector<std::u16string>& languages, SourceTexts& texts,
                               Findings& findings);

} // namespace refdoc::check
