#pragma once

namespace reference::docparser {

/// How the bytes of a JSON string become UTF-16.
enum class StringParsingType {
    /// Identifiers, links, file references: each byte becomes the code unit of the same value.
    Ascii,
    /// Text for people: decoded as UTF-8, each maximal ill-formed sequence to U+FFFD.
    Utf8
};

} // namespace reference::docparser
