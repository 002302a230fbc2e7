#pragma once

#include "platform/Cxx20.hpp"

namespace reference::docparser {

/// How the bytes of a JSON string are converted to UTF-16.
enum class StringParsingType {
    /// For identifiers, links and file references: each byte becomes the code unit of its value.
    Ascii,
    /// For text: decoded as UTF-8; each maximal ill-formed sequence becomes one U+FFFD.
    Utf8
};

} // namespace reference::docparser
