#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"

#include <boost/json/fwd.hpp>

#include <string>

namespace reference::docparser {

/// Reads one section of a full resource file: its header and the items of "refItems".
///
/// The key of an item is its href. Items with the same href are in file order.
/// \param section  the file's root, or an element of its "supportPackages"
/// \param product  the requested product name
/// \throws FormatError  the section violates the format; the caller must skip the whole file
DocResource<property::RefItem> parseRefItemSection(const boost::json::value& section,
                                                   const std::u16string& product);

} // namespace reference::docparser
