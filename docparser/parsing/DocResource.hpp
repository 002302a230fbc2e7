#pragma once

#include "docparser/parsing/HeaderInfo.hpp"

#include <map>
#include <string>
#include <vector>

namespace reference::docparser {

/// One section of a resource file: its header and its items.
///
/// \tparam T  reference::property::RefItem, whose key is its href, or
///            reference::property::RefItemLookup, whose key is its name
template <class T>
struct DocResource {
    /// Maps each key, in code-unit order, to the items that have it, in file order.
    using Items = std::map<std::u16string, std::vector<T>>;

    /// The header of the file, or of the section of its "supportPackages".
    property::HeaderInfo header;
    /// Empty if the section has no items. Every key has at least one item.
    Items items;

    bool operator==(const DocResource&) const = default;
};

/// Sections by key, in code-unit order. The key of a file's main section is its help folder, the
/// key of a section of "supportPackages" its base code.
template <class T>
using ResourceMap = std::map<std::u16string, DocResource<T>>;

} // namespace reference::docparser
