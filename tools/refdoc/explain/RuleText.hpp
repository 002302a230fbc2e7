#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/explain/Origins.hpp"

#include <optional>
#include <string>
#include <vector>

namespace refdoc {

// The files and rules of an explanation in words. `files` are those of the account.

/// Returns "FILE" or "PACKAGE!ENTRY".
std::u16string fileText(const reference::docparser::FileAccount& file);

/// Returns fileText() with ":LINE:COLUMN" behind it if the place is known.
std::u16string placeText(const reference::docparser::FileAccount& file,
                         const std::optional<reference::docparser::TextPlace>& place);

/// Returns the rule by which a record lost, with the name of the file that it lost to.
std::u16string ruleOf(const LostRecord& lost,
                      const std::vector<reference::docparser::FileAccount>& files);

/// Returns the rule by which the header of a section lost.
std::u16string ruleOf(const LostHeader& lost,
                      const std::vector<reference::docparser::FileAccount>& files);

} // namespace refdoc
