#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/diff/changes/Change.hpp"

#include <string>
#include <vector>

namespace refdoc::diff {

using ItemMap = reference::docparser::DocResource<reference::property::RefItem>::Items;
using EntryMap = reference::docparser::DocResource<reference::property::RefItemLookup>::Items;

// Both functions return changes in the order of the old links or names, without the product.

/// Compares the items of a section.
std::vector<Change> compareItems(const std::string& section, const ItemMap& olds,
                                 const ItemMap& news);

/// Compares the entries of a section of the lookup index.
std::vector<Change> compareEntries(const std::string& section, const EntryMap& olds,
                                   const EntryMap& news);

} // namespace refdoc::diff
