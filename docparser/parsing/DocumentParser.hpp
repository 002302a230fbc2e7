#pragma once

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/value.hpp>

#include <string_view>

namespace reference::docparser {

/// Parses the text of a resource file into a document.
///
/// Accepts the same texts as boost::json::parse() with its default options and throws the same
/// errors, but is much faster for languages other than English.
/// \param arena  provides the memory of the document and must outlive it
/// \throws boost::system::system_error  invalid JSON
boost::json::value parseDocument(std::string_view text, boost::json::monotonic_resource& arena);

} // namespace reference::docparser
