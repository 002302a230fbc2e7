#pragma once

#include "tools/refdoc/terminal/Paint.hpp"

#include <cstddef>
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
};

/// Rows in aligned columns. Empty columns are left out.
class Table {
public:
    /// \param titles  of the columns, shown above the first row if there is one; empty for no
    /// titles
    explicit Table(const std::vector<std::u16string>& titles = {});

    void addRow(std::vector<Cell> cells) { rows_.push_back({std::move(cells), false}); }

    /// Adds a line that starts at the left and is not aligned with the columns.
    void addHeading(std::vector<Cell> words) { rows_.push_back({std::move(words), true}); }

    bool isEmpty() const noexcept { return rows_.empty(); }

    /// Returns the number of rows and headings.
    std::size_t size() const noexcept { return rows_.size(); }

    /// How to lay out a cell that is wider than its column.
    enum class Overflow { Wrap, Cut };

    /// Returns the lines of the table in UTF-8, without trailing spaces.
    /// \param width  the most columns of a terminal that a row may fill
    std::vector<std::string> layOut(std::size_t width, Overflow overflow, bool color) const;

private:
    struct Row {
        std::vector<Cell> cells;
        bool isHeading;
    };

    std::vector<Cell> titles_;
    std::vector<Row> rows_;
};

} // namespace refdoc
