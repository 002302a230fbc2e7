#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"

#include <boost/json/fwd.hpp>

#include <string>

namespace reference::docparser {

/// Reads one section of a full resource file: its header and the items of "refItems".
///
/// The items are keyed by href; items of equal href stand behind each other in file order.
/// \param section  the file's root, or an element of its "supportPackages"
/// \param product  the name that the product was asked for by
/// \throws FormatError  the section breaks the format; the caller then drops the whole file
DocResource<property::RefItem> parseRefItemSection(const boost::json::value& section,
                                                   const std::u16string& product);

} // namespace reference::docparser
