#pragma once

#include "tools/refdoc/check/rules/Finding.hpp"

#include <vector>

namespace refdoc::check {

/// Finds the places that the pointers of findings, and of what is related to them, stand for. Each
/// file is read again and walked once, and only files with findings are.
void findPlaces(std::vector<Finding>& findings);

} // namespace refdoc::check
