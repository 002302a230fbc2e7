#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

// Lays out UTF-8 strings in columns of a terminal. Line feeds are the only control characters that
// a string may have; see visibleText().

/// Breaks a string into lines of at most `width` columns.
///
/// A line ends at a line feed, between words, or beside an East Asian wide character, but never
/// before closing punctuation or small kana, and never after opening punctuation. A run of spaces
/// counts as one. A word that is wider than a line is broken after a slash, else where punctuation
/// allows it, else at the end of the line. Graphemes are never broken.
/// \param width  1 or more; a grapheme that is wider gets a line of its own
/// \returns      at least one line, which may be empty
std::vector<std::string> wrapText(std::string_view text, std::size_t width);

/// Returns a string without line feeds, or its start and an ellipsis if it fills more than `width`
/// columns.
std::string cutText(std::string_view text, std::size_t width);

/// Shares `available` columns of a terminal among the columns of a table. Narrow ones keep their
/// natural width; wide ones share the rest equally.
/// \param natural  the width of the widest cell of each column
/// \returns        the widths, 0 only where the natural one is; their sum exceeds `available` only
/// if
///                 columns would vanish otherwise
std::vector<std::size_t> shareWidth(const std::vector<std::size_t>& natural, std::size_t available);

} // namespace refdoc
