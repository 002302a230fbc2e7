#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

namespace reference::docparser {

/// Adds to `target` the names and records that only `source` has.
///
/// A name that `target` lacks is moved over with all its records. For a name that both have,
/// source records are appended only if `target` has fewer records of the name than `source`:
/// namely those whose href no record of `target` has yet. Cost: O(n log n) in the names, linear in
/// the records of a name.
/// \param source  keeps the names that both have, with all their records
void mergeLookupItems(DocResource<property::RefItemLookup>::Items& target,
                      DocResource<property::RefItemLookup>::Items& source,
                      RetrievalObserver& observer);

} // namespace reference::docparser
