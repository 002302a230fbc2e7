#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/shared/LoadAccount.hpp"

#include <boost/json/fwd.hpp>

#include <string>
#include <vector>

namespace reference::docparser {

/// Reads one section of a resource file, a JSON object, into a record.
template <class T>
using SectionParser = DocResource<T> (*)(const boost::json::value& section,
                                         const std::u16string& product);

/// The sections of a file, in file order.
using SectionList = std::vector<SectionAccount>;

/// Parses the text of a resource file: its main section, keyed by help folder, and the sections of
/// its "supportPackages", each keyed by base code. A section whose key is taken is dropped.
///
/// Instantiated for property::RefItem and property::RefItemLookup.
/// \param text          UTF-8; its memory is given back as soon as it is parsed
/// \param product       the name that the product was asked for by
/// \param parseSection  called for each section, in file order
/// \param list          where to list the sections with their keys and pointers: Unused yet, or
///                      KeyTaken; null: nobody asks
/// \throws FormatError  the document breaks the format; it carries the JSON pointer
/// \throws boost::system::system_error  the text is no JSON
/// \throws whatever parseSection throws
template <class T>
ResourceMap<T> parseResourceText(std::string text, const std::u16string& product,
                                 SectionParser<T> parseSection, SectionList* list = nullptr);

} // namespace reference::docparser
