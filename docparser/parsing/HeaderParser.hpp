#pragma once

#include "docparser/parsing/HeaderInfo.hpp"

#include <boost/json/fwd.hpp>

#include <string>

namespace reference::docparser {

/// Reads the header of a resource file, or of one section of its "supportPackages".
///
/// "productName", "baseCode", "helpFolder" and "helpLocation" are required; "schema" and
/// "schemaVersion" are empty if they are absent. Other keys are ignored.
/// \param product  the requested product name, copied into the header
/// \throws FormatError  `section` is not an object, or a key is missing or not a string
property::HeaderInfo getHeaderInfo(const boost::json::value& section,
                                   const std::u16string& product);

} // namespace reference::docparser
