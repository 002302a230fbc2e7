#pragma once

#include "docparser/discovery/ProductData.hpp"
#include "docparser/discovery/ProductZipData.hpp"
#include "docparser/retrieval/LookupReadContext.hpp"

#include <vector>

namespace reference::docparser {

// Reading the lookup files of a list of products, in its order, into a result. Each section goes
// into the map that the installed-product test of its key chooses. One whose key is taken there is
// merged with the section that is there, as mergeLookupItems() says; a translation first trades
// places with it, header and items. A product that can't be read or parsed, or whose test throws,
// costs only what it had not yet merged.

/// Reads products that lie in a folder.
void readFolderLookups(const std::vector<ProductPathData>& products,
                       const LookupReadContext& context, LookupResults& result);

/// Reads products that are entries of one package, which stays open meanwhile.
/// \param package  the package's path, for the account
void readZipPackageLookups(const std::vector<ProductZipData>& products,
                           const std::u16string& package, const LookupReadContext& context,
                           LookupResults& result);

} // namespace reference::docparser
