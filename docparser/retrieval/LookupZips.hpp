#pragma once

#include "docparser/discovery/ProductData.hpp"
#include "docparser/retrieval/LookupReadContext.hpp"

#include <vector>

namespace reference::docparser {

/// Opens zip packages one after the other and reads the lookup files in them, in their order, into
/// one result; each package is closed before the next is opened.
///
/// A package that can't be opened or listed contributes nothing, and nothing is logged for it.
LookupResults readZipLookups(const std::vector<ProductPathData>& zipPackages,
                             const LookupReadContext& context);

} // namespace reference::docparser
