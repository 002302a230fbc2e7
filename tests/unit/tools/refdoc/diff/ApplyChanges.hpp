#pragma once

#include "tools/refdoc/diff/changes/Change.hpp"

#include <boost/json/value.hpp>

#include <vector>

namespace refdoc_tests {

/// Applies the changes of a product to its old version, only by what they say.
/// \param product  an object as the value of "product-added", or null if there is no product
/// \returns        the new version in the same form; sections and parts without records are left
///                 out
boost::json::value applyChanges(boost::json::value product,
                                const std::vector<refdoc::diff::Change>& changes);

/// Removes the parts of sections that have no records.
void removeEmptyParts(boost::json::value& product);

} // namespace refdoc_tests
