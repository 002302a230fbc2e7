#pragma once

#include <boost/json/value.hpp>

#include <cstddef>
#include <string>

namespace refdoc {

// All functions make UTF-8. Besides what JSON requires, they escape the controls U+007F to U+009F,
// because terminals obey them, and the separators U+2028 and U+2029, because some programs take
// them for the end of a line.

/// Returns a document with each member and element on a line of its own, indented by two spaces per
/// level, and a line feed at the end.
std::string toIndentedJson(const boost::json::value& document);

/// Appends a value like toIndentedJson(), within a document that is written piece by piece.
/// Appends no line feed at the end.
/// \param depth  the level of the value in the document
void appendIndentedJson(std::string& text, const boost::json::value& value, std::size_t depth);

/// Returns a document on one line, without spaces between values, and a line feed at the end.
std::string toJsonLine(const boost::json::value& document);

} // namespace refdoc
