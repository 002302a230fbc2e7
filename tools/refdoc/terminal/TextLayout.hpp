#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

// Laying out text in columns of a terminal. Texts are free of control characters but for the line
// feed; see visibleText().

/// Breaks a text into lines of at most `width` columns.
///
/// A line ends at a line feed, between words, or beside an East Asian wide character unless it is
/// closing punctuation; runs of spaces count as one. A word that is longer than a line is broken
/// where the line ends. What combines with a character stays with it.
/// \param width  1 or more; a wider character still gets a line
/// \returns      one line at the least, which may be empty
std::vector<std::u16string> wrapText(std::u16string_view text, std::size_t width);

/// A text without line feeds, or its start and an ellipsis where it fills more than `width`
/// columns.
std::u16string cutText(std::u16string_view text, std::size_t width);

/// How wide the columns of a table become so that together they fill at most `available`.
///
/// Narrow columns keep their width; the wide ones share what is left alike.
/// \param natural  the widths that the columns would like to have
/// \returns        a width for each, 1 at the least
std::vector<std::size_t> shareWidth(const std::vector<std::size_t>& natural, std::size_t available);

} // namespace refdoc
