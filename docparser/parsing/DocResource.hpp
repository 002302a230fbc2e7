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
    /// Key to every item that has it, in file order; the keys in code-unit order.
    using Items = std::map<std::u16string, std::vector<T>>;

    /// Of the file, or of the section of its "supportPackages".
    property::HeaderInfo header;
    /// Each key has one record at least; empty when the section has no items.
    Items items;

    bool operator==(const DocResource&) const = default;
};

/// Sections by key, in code-unit order: the help folder of a file's main section, the base code of
/// a section of its "supportPackages".
template <class T>
using ResourceMap = std::map<std::u16string, DocResource<T>>;

} // namespace reference::docparser
