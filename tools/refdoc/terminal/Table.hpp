#pragma once

#include "tools/refdoc/terminal/Paint.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace refdoc {

/// One cell of a table. The text may contain any characters, even control characters.
struct Cell {
    std::u16string text;
    Paint paint = Paint::Plain;
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
