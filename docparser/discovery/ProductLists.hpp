#pragma once

#include "docparser/discovery/ProductData.hpp"

#include <vector>

namespace reference::docparser {

/// The product files of one folder, each type in the order of the folder.
struct ProductLists {
    std::vector<ProductPathData> jsonProducts; ///< plain resource files
    std::vector<ProductPathData> zipProducts;  ///< packages, not yet opened
};

} // namespace reference::docparser
