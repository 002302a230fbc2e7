#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"
#include "tools/refdoc/session/LookupIndex.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// The command `lookup`: the lookup index, or its entries with the given names.
///
/// Each name that the index lacks is a complaint, with up to three similar names. An empty index is
/// a success.
CommandEntry lookupCommand();

/// Returns all names of the index, those of installed products first. A name of several sections is
/// repeated. The views refer to `results`.
std::vector<std::u16string_view> namesOf(const LookupResults& results);

/// Returns a complaint for each of the names that no section of the index has.
std::vector<std::string> complaintsAboutNames(const std::vector<std::u16string>& names,
                                              const LookupResults& results);

} // namespace refdoc
