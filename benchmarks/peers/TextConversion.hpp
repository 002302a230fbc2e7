#pragma once

#include "docparser/parsing/StringParsingType.hpp"

#include <string>
#include <string_view>

namespace reference::docparser::benchmarks {

/// Makes a record's text of a JSON string, with the same result as the library's converters.
///
/// The peers share it, so that they are compared by their parsers: one pass that widens ASCII in
/// blocks, decodes the rest of well-formed UTF-8 in place and leaves ill-formed text to the
/// library's decoder.
std::u16string convertText(std::string_view text, StringParsingType type);

} // namespace reference::docparser::benchmarks
