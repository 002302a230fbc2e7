#pragma once

#include "tools/refdoc/check/findings/Finding.hpp"

#include <cstddef>
#include <span>
#include <string_view>

namespace refdoc::check {

/// Returns all rules, in the order in which they are listed.
std::span<const Rule* const> rules();

/// Returns the index of a rule in rules().
std::size_t indexOf(const Rule& rule);

/// Returns the rule with this name; null if there is none.
const Rule* findRule(std::string_view name);

} // namespace refdoc::check
