#pragma once

#include <cstddef>
#include <string_view>

namespace reference::docparser::benchmarks {

/// Parses a text with the system's shared Boost.JSON, into the arena that the library uses, and
/// drops the document.
/// \returns  1 for a document, so that the work has a result
std::size_t parseWithSharedJson(std::string_view text);

} // namespace reference::docparser::benchmarks
