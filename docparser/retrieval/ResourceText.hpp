#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <boost/json/fwd.hpp>

#include <string>

namespace reference::docparser {

/// Reads one section of a resource file, a JSON object, into a record.
template <class T>
using SectionParser = DocResource<T> (*)(const boost::json::value& section,
                                         const std::u16string& product);

/// Parses the JSON of a resource file: its main section, keyed by help folder, and the sections of
/// its "supportPackages", each keyed by base code. If several sections have the same key, only the
/// first is kept.
///
/// Instantiated for property::RefItem and property::RefItemLookup.
/// \param text          JSON in UTF-8; its memory is released as soon as it is parsed
/// \param product       the name that the product was requested by
/// \param parseSection  called for each section, in file order
/// \throws FormatError  the document violates the format; it carries the JSON pointer
/// \throws boost::system::system_error  invalid JSON
/// \throws whatever parseSection throws
template <class T>
ResourceMap<T> parseResourceText(std::string text, const std::u16string& product,
                                 SectionParser<T> parseSection, RetrievalObserver& observer);

} // namespace reference::docparser
