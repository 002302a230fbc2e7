#pragma once

#include <string_view>

namespace reference::docparser::benchmarks {

/// Parses a text with the system's shared Boost.JSON and its default options, into an arena like
/// that of the library, and drops the document.
void parseWithSharedJson(std::string_view text);

} // namespace reference::docparser::benchmarks
