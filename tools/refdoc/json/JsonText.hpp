#pragma once

#include <boost/json/value.hpp>

#include <string>

namespace refdoc {

// Both functions return UTF-8 with a line feed at the end. Besides what JSON requires, they escape
// the controls U+007F to U+009F, because terminals obey them, and the separators U+2028 and U+2029,
// because some programs take them for the end of a line.

/// Returns a document with each member and element on a line of its own, indented by two spaces per
/// level.
std::string toIndentedJson(const boost::json::value& document);

/// Returns a document on one line, without spaces between values.
std::string toJsonLine(const boost::json::value& document);

} // namespace refdoc
