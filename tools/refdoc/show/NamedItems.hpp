#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/session/LookupIndex.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// An item that the lookup index has under some name.
struct NamedItem {
    std::u16string product; ///< the name of its resource file
    std::u16string section; ///< the key of its section
    bool isInstalled;
    reference::property::RefItemLookup entry;
};

/// Returns the items that the lookup index has under this name, in the order of the index, those of
/// installed products first. Entries with the same product and link are one item.
std::vector<NamedItem> itemsNamed(const std::u16string& name, const LookupResults& index);

/// Replaces each name among the arguments by the hrefs of its items: those that document something
/// of this name, otherwise those that the lookup index has under it. Hrefs of the product, and
/// strings that are neither, stay.
std::vector<std::u16string>
hrefsFor(const std::vector<std::u16string>& arguments, const std::u16string& product,
         const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

} // namespace refdoc
