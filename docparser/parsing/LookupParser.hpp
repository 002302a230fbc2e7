#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <boost/json/fwd.hpp>

#include <string>

namespace reference::docparser {

/// Reads one section of a lookup file: its header and the items of "refItems".
///
/// The key of an item is its name. Items with the same name are in file order.
/// \param section  the file's root, or an element of its "supportPackages"
/// \param product  the name of the product that the file belongs to
/// \throws FormatError  the section violates the format; the caller must skip the whole file
DocResource<property::RefItemLookup> parseRefItemLookupSection(const boost::json::value& section,
                                                               const std::u16string& product);

} // namespace reference::docparser
