#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/diff/compare/ProductComparison.hpp"

#include <boost/json/value.hpp>

#include <random>

namespace refdoc_tests {

/// A product with few different names, links and texts, so that two such products have much in
/// common, and repeat links, names and titles.
class RandomProduct {
public:
    explicit RandomProduct(std::mt19937& random);

    /// Returns the records, which refer to this object.
    refdoc::diff::ProductRecords records() const;

private:
    reference::docparser::ResourceMap<reference::property::RefItem> resources_;
    reference::docparser::ResourceMap<reference::property::RefItemLookup> lookup_;
};

/// Returns a product as the value of "product-added".
boost::json::value asJson(const refdoc::diff::ProductRecords& records);

} // namespace refdoc_tests
