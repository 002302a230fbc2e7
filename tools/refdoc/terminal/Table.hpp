#pragma once

#include "tools/refdoc/terminal/Cell.hpp"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace refdoc {

struct ColumnExtent;
struct RowPlace;

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
    bool hasTitles() const noexcept { return !titles_.empty(); }

    /// How to lay out rows that are wider than the available width.
    enum class Form {
        Wrapped,      ///< cells are wrapped side by side
        Folded,       ///< cells that may be cut are cut; then rows continue on further lines
        FieldPerLine, ///< each cell is on a line of its own, after the title of its column
    };

    /// Returns the lines of the table in UTF-8, without trailing spaces.
    /// \param width  the most columns of a terminal that a line may fill
    std::vector<std::string> layOut(std::size_t width, Form form, bool color) const;

private:
    struct Row {
        std::vector<Cell> cells;
        bool isHeading;
    };
    using RowWriter = std::function<void(const std::vector<Cell>& cells)>;

    RowWriter writerOf(Form form, const RowPlace& place) const;
    std::vector<ColumnExtent> measure(std::size_t (*widthOf)(const Cell&)) const;

    std::vector<Cell> titles_;
    std::vector<Row> rows_;
};

} // namespace refdoc
