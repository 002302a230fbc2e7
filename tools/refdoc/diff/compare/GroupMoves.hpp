#pragma once

#include "tools/refdoc/diff/compare/FieldChanges.hpp"

#include <vector>

namespace refdoc::diff {

/// Makes removed and added elements textual that only moved between the groups of an item, unless
/// something about them broke.
/// \param changes  all changes of a record
void softenGroupMoves(std::vector<FieldChange>& changes);

} // namespace refdoc::diff
