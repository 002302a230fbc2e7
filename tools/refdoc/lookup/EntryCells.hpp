#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/terminal/Table.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Returns the row of a lookup entry for people: name, type, purpose, product, link and what is
/// special about it.
/// \param withLink  false: the cell of the link is empty
std::vector<Cell> entryCells(const reference::property::RefItemLookup& entry,
                             const std::u16string& product, bool isInstalled, bool withLink);

/// Returns the fields of a lookup entry for `--plain`: name, type, purpose, product, section, link,
/// "yes" or "no" for installed, and "yes" or "no" for deprecated.
std::vector<std::u16string> plainFields(const reference::property::RefItemLookup& entry,
                                        const std::u16string& section,
                                        const std::u16string& product, bool isInstalled);

} // namespace refdoc
