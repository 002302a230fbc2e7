#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/terminal/Table.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// How to show a lookup entry.
struct EntryStyle {
    bool withLink = true;
    bool isEnglish = false; ///< the entry is not translated into the current language
};

/// Returns the row of a lookup entry for people: name, type, purpose, product, link and what is
/// special about it. Only the purpose may be cut.
std::vector<Cell> entryCells(const reference::property::RefItemLookup& entry,
                             const std::u16string& product, const EntryStyle& style);

/// Returns a table of rows of entries. If any belong to products that are not installed, the rows
/// are in two groups with headings.
Table groupedEntries(std::vector<std::vector<Cell>> installed,
                     std::vector<std::vector<Cell>> notInstalled);

/// Returns the fields of a lookup entry for `--plain`: name, type, purpose, product, section, link,
/// "yes" or "no" for installed, and "yes" or "no" for deprecated.
std::vector<std::u16string> plainFields(const reference::property::RefItemLookup& entry,
                                        const std::u16string& section,
                                        const std::u16string& product, bool isInstalled);

} // namespace refdoc
