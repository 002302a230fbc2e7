#pragma once

#include "docparser/discovery/ProductLists.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <string>
#include <vector>

namespace reference::docparser {

/// Returns the product files directly in a folder; see DocResourceParser::getAllProducts(). Never
/// throws.
ProductLists findProducts(const std::u16string& root,
                          const std::vector<std::u16string>& localeSuffixes,
                          const std::u16string& currentLocaleSuffix, RetrievalObserver& observer);

} // namespace reference::docparser
