#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

namespace reference::docparser {

/// Fills one lookup section up with what another one has besides.
///
/// A name that `target` lacks is moved over with all its records. Of a name that both have, the
/// records of `source` whose href `target` has not yet under that name are appended, but only where
/// `target` has fewer records of the name than `source`; else nothing is added.
/// Cost: O(n log n) in the names, linear in the records of a name.
void mergeLookupItems(DocResource<property::RefItemLookup>::Items& target,
                      DocResource<property::RefItemLookup>::Items& source);

} // namespace reference::docparser
