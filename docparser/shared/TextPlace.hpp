#pragma once

#include "platform/Cxx20.hpp"

#include <cstddef>

namespace reference::docparser {

/// A position in a UTF-8 string.
struct TextPlace {
    std::size_t offset = 0; ///< in bytes, from 0
    std::size_t line = 1;   ///< from 1; a line ends with U+000A
    std::size_t column = 1; ///< from 1, in characters (Unicode code points)

    bool operator==(const TextPlace&) const = default;
};

} // namespace reference::docparser
