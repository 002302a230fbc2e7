#pragma once

#include "docparser/parsing/HeaderInfo.hpp"

#include <boost/json/fwd.hpp>

#include <string>

namespace reference::docparser {

/// Reads the header keys of a resource file or of one section of its "supportPackages".
///
/// "schema" and "schemaVersion" may be absent, which makes them empty; "productName", "baseCode",
/// "helpFolder" and "helpLocation" are required. Keys that are not the header's are left alone.
/// \param section  the section's JSON object
/// \param product  the name that the product was asked for by, copied into the header
/// \throws FormatError  the section is not an object, a required key is missing, or a key has a
///                      value that is not a string
property::HeaderInfo getHeaderInfo(const boost::json::value& section,
                                   const std::u16string& product);

} // namespace reference::docparser
