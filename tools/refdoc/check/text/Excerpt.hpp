#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace refdoc::check {

/// A line of a text with a marker below it, for a terminal. Neither ends with a line feed.
///
///     "productName": "Cellar",, "version": 2
///                             ^
struct Excerpt {
    std::string line;   ///< control characters are replaced by their pictures
    std::string marker; ///< spaces, '^' below the first marked character, '~' below the others

    bool operator==(const Excerpt&) const = default;
};

/// Shows the line around a position. A line that is too wide is cut on either side of the position,
/// with "..." at each cut.
/// \param text     UTF-8; each ill-formed sequence is shown as U+FFFD
/// \param offset   in bytes; past the end of the text, the end is marked
/// \param length   the bytes to mark; at least one character is, and nothing past the line
/// \param columns  the width of the terminal; at least 20 and at most 1,000 are used
/// Cost: independent of the size of the text and of the length of the line.
Excerpt excerptOf(std::string_view text, std::size_t offset, std::size_t length,
                  std::size_t columns);

} // namespace refdoc::check
