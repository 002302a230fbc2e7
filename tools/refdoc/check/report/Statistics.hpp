#pragma once

#include "tools/refdoc/check/report/Report.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace refdoc::check {

/// The number of findings that a rule has in the files of a product.
struct ProductCount {
    const Rule* rule;
    std::string product; ///< empty for files that belong to no product
    std::size_t count;

    bool operator==(const ProductCount&) const = default;
};

/// Counts the findings of each rule in each product. Returns the rules in their usual order, and
/// for each rule the products with the most findings first.
std::vector<ProductCount> countByProduct(const std::vector<ReportedFinding>& findings);

} // namespace refdoc::check
