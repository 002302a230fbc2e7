#include "tools/refdoc/terminal/Table.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/RowLines.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <boost/algorithm/string/split.hpp>

#include <algorithm>

namespace refdoc {

namespace {

constexpr std::size_t kHeadingIndent = 2; // of the rows below a heading

using Lines = std::vector<std::string>;

std::size_t widthOnOneLine(const Cell& cell) {
    return displayWidth(textOnOneLine(cell));
}

std::size_t widestLine(const Cell& cell) {
    const std::string text = visibleText(cell.text);
    Lines lines;
    boost::split(lines, text, [](char byte) { return byte == '\n'; });
    return displayWidth(*std::ranges::max_element(lines, {}, displayWidth));
}

// Rows whose cells are wrapped side by side.
class WrappedRows {
public:
    WrappedRows(const std::vector<ColumnExtent>& columns, const RowPlace& place) : place_(place) {
        std::vector<std::size_t> natural;
        for (const ColumnExtent& column : columns)
            natural.push_back(column.width);
        const std::size_t empty = static_cast<std::size_t>(std::ranges::count(natural, 0U));
        const std::size_t gaps = std::max<std::size_t>(natural.size() - empty, 1) - 1;
        const std::size_t taken = place.indent + gaps * kColumnGap;
        widths_ = shareWidth(natural, place.width - std::min(place.width, taken));
    }

    void add(const std::vector<Cell>& cells) const {
        std::vector<Lines> texts;
        std::size_t height = 0;
        for (std::size_t column = 0; column < cells.size(); ++column) {
            texts.push_back(wrap(cells[column], widths_[column]));
            height = std::max(height, texts.back().size());
        }
        for (std::size_t index = 0; index < height; ++index)
            place_.lines.push_back(lineAt(index, cells, texts));
    }

private:
    static Lines wrap(const Cell& cell, std::size_t width) {
        return width > 0 ? wrapText(visibleText(cell.text), width) : Lines();
    }

    std::string lineAt(std::size_t index, const std::vector<Cell>& cells,
                       const std::vector<Lines>& texts) const {
        LineBuilder line(place_.indent, place_.color);
        for (std::size_t column = 0; column < cells.size(); ++column) {
            if (widths_[column] > 0)
                line.add(index < texts[column].size() ? texts[column][index] : "", cells[column],
                         widths_[column]);
        }
        return line.take();
    }

    RowPlace place_;
    std::vector<std::size_t> widths_; // of the columns; 0: the column is empty and left out
};

} // namespace

Table::Table(const std::vector<std::u16string>& titles) {
    for (const std::u16string& title : titles)
        titles_.push_back({title, Paint::Dim});
}

std::vector<std::string> Table::layOut(std::size_t width, Form form, bool color) const {
    Lines lines;
    const bool hasHeadings = std::ranges::any_of(rows_, &Row::isHeading);
    const RowWriter write = writerOf(form, {lines, hasHeadings ? kHeadingIndent : 0, width, color});
    if (!rows_.empty() && !titles_.empty() && form != Form::FieldPerLine)
        write(titles_);
    for (const Row& row : rows_) {
        if (!row.isHeading) {
            write(row.cells);
            continue;
        }
        if (!lines.empty())
            lines.emplace_back();
        addFoldedRow(row.cells, {lines, /*indent=*/0, width, color});
    }
    return lines;
}

Table::RowWriter Table::writerOf(Form form, const RowPlace& place) const {
    switch (form) {
    case Form::Wrapped:
        return [rows = WrappedRows(measure(widestLine), place)](const auto& cells) {
            rows.add(cells);
        };
    case Form::Folded:
        return [rows = FoldedRows(measure(widthOnOneLine), place)](const auto& cells) {
            rows.add(cells);
        };
    case Form::FieldPerLine: break;
    }
    return [&, place](const auto& cells) { addFieldPerLine(cells, titles_, place); };
}

std::vector<ColumnExtent> Table::measure(std::size_t (*widthOf)(const Cell&)) const {
    std::vector<ColumnExtent> columns(titles_.size());
    for (const Row& row : rows_) {
        if (row.isHeading)
            continue;
        columns.resize(std::max(columns.size(), row.cells.size()));
        for (std::size_t index = 0; index < row.cells.size(); ++index) {
            const Cell& cell = row.cells[index];
            ColumnExtent& column = columns[index];
            column.width = std::max(column.width, widthOf(cell));
            column.mayBeCut = column.mayBeCut || cell.mayBeCut;
        }
    }
    for (std::size_t index = 0; index < titles_.size(); ++index) {
        if (columns[index].width > 0)
            columns[index].width = std::max(columns[index].width, widthOf(titles_[index]));
    }
    return columns;
}

} // namespace refdoc
