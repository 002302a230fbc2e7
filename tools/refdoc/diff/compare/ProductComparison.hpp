#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/diff/changes/Change.hpp"

#include <map>
#include <string>

namespace refdoc::diff {

/// What one tree has of a product.
struct ProductRecords {
    using LookupSection = reference::docparser::DocResource<reference::property::RefItemLookup>;

    /// Whether the tree has a file of the product, even a damaged one, or a section of the lookup
    /// index.
    bool exists = false;

    /// The full records by section; empty if the product has no file.
    reference::docparser::ResourceMap<reference::property::RefItem> resources{};

    /// The sections of the lookup index. The index must outlive them.
    std::map<std::u16string, const LookupSection*> lookup{};

    // Whether a file is damaged, so that records may be missing.
    bool areResourcesDamaged = false;
    bool isLookupDamaged = false;
};

/// Compares what two trees have of a product. What is damaged on one side is ignored on both.
///
/// A section is what the full records and the lookup index have under one key. It is compared by
/// its header, its items and its entries, and only an item can move. The header of the lookup index
/// counts if a side has no full records of the section, or if it differs in another way.
/// Cost: linear in the number of records; equal records are not converted to JSON.
ProductChanges compareProducts(const std::u16string& product, const ProductRecords& oldRecords,
                               const ProductRecords& newRecords);

} // namespace refdoc::diff
