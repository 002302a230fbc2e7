#pragma once

#include "tools/refdoc/terminal/Paint.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace refdoc {

/// One cell of a table; its text may be anything, control characters included.
struct Cell {
    std::u16string text;
    Paint paint = Paint::Plain;
};

/// Rows in aligned columns. Columns in which nothing stands are left out.
class Table {
public:
    /// \param titles  what stands over the columns; none for a table without a line of titles. A
    ///                table without rows shows no titles either
    explicit Table(std::vector<std::u16string> titles = {}) : titles_(std::move(titles)) {}

    void addRow(std::vector<Cell> cells) { rows_.push_back({std::move(cells), false}); }

    /// A line of its own that starts at the left and takes no part in the alignment.
    void addHeading(std::vector<Cell> words) { rows_.push_back({std::move(words), true}); }

    bool isEmpty() const noexcept { return rows_.empty(); }

    /// What to do with a cell that is wider than its column.
    enum class Overflow { Wrap, Cut };

    /// The lines of the table, UTF-8, without spaces at their ends.
    /// \param width  how many columns of the terminal it may fill
    std::vector<std::string> layOut(std::size_t width, Overflow overflow, bool color) const;

private:
    struct Row {
        std::vector<Cell> cells;
        bool isHeading;
    };

    std::vector<std::u16string> titles_;
    std::vector<Row> rows_;
};

} // namespace refdoc
