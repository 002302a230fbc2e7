#pragma once

#include "tools/refdoc/terminal/Paint.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// A part of a line, in UTF-8.
struct LinePart {
    std::string text;
    bool isMatch; ///< painted as a match, whatever the paint of the cell
};

/// Splits a line into its parts.
using LineSplitter = std::function<std::vector<LinePart>(std::string_view line)>;

/// One cell of a table. The text may contain any characters, even control characters.
struct Cell {
    std::u16string text;
    Paint paint = Paint::Plain;
    const LineSplitter* splitter = nullptr; ///< applied to each line; null: a line is one part
    bool mayBeCut = false;                  ///< if its record is wider than the terminal
};

} // namespace refdoc
