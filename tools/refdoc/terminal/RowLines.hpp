#pragma once

#include "tools/refdoc/terminal/Cell.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc {

constexpr std::size_t kColumnGap = 2; ///< columns of a terminal between two cells

/// Puts cells on one line, without trailing spaces.
class LineBuilder {
public:
    LineBuilder(std::size_t indent, bool color) : color_(color), owedSpaces_(indent) {}

    /// Adds the text of a cell, or a part of it, and fills up to `width` columns.
    void add(std::string_view text, const Cell& cell, std::size_t width);

    std::string take() { return std::move(line_); }

private:
    void addPainted(std::string_view text, const Cell& cell);

    bool color_;
    std::string line_;
    std::size_t owedSpaces_; // before the next text
};

/// Returns the text of a cell without line feeds, as UTF-8.
std::string textOnOneLine(const Cell& cell);

/// Where the lines of a row go, and how wide they may be.
struct RowPlace {
    std::vector<std::string>& lines;
    std::size_t indent; ///< of the first line; others are indented further
    std::size_t width;  ///< in columns of a terminal
    bool color;
};

/// Adds a row with one cell per line, wrapped.
/// \param titles  of the columns; each but the first precedes its cell
void addFieldPerLine(const std::vector<Cell>& cells, const std::vector<Cell>& titles,
                     RowPlace place);

/// Adds a row whose cells follow each other on as many lines as they need. Cells that may be cut
/// are cut; any other cell that is wider than a line is wrapped.
void addFoldedRow(const std::vector<Cell>& cells, RowPlace place);

/// What a column needs.
struct ColumnExtent {
    std::size_t width = 0; ///< of the widest cell; 0: the column is empty and left out
    bool mayBeCut = false;
};

/// Rows whose first lines are aligned. If a terminal is too narrow, the columns that may be cut
/// shrink first; then the last columns move to a second line.
class FoldedRows {
public:
    FoldedRows(std::vector<ColumnExtent> columns, const RowPlace& place);

    /// Adds a row. If a cell is too wide for its column, no cell of the row is aligned.
    void add(const std::vector<Cell>& cells) const;

private:
    bool chooseColumns(std::size_t widestFirst);
    bool fits(const std::vector<Cell>& cells) const;

    RowPlace place_;
    std::vector<ColumnExtent> columns_;
    std::vector<std::size_t> widths_; // of the columns on the first line; 0: left out
};

} // namespace refdoc
