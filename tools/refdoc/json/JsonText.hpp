#pragma once

#include <boost/json/value.hpp>

#include <string>

namespace refdoc {

// JSON as the tool prints it: in UTF-8, with a line feed at the end. Beyond what JSON requires,
// the controls U+007F to U+009F, which terminals obey, and the separators U+2028 and U+2029, which
// some readers take for the end of a line, are escaped.

/// Returns a document over several lines, with two spaces for each level.
std::string toIndentedJson(const boost::json::value& document);

/// Returns a document on one line.
std::string toJsonLine(const boost::json::value& document);

} // namespace refdoc
