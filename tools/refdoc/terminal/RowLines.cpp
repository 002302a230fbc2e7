#include "tools/refdoc/terminal/RowLines.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <algorithm>
#include <limits>

namespace refdoc {

namespace {

constexpr std::size_t kFurtherIndent = 4; // of the lines after the first
constexpr std::size_t kLeastCut = 20;     // a cell is not cut to fewer columns
constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

// Wide first columns are not aligned if they fill a larger part of a line than this.
constexpr std::size_t kPartForFirstColumn = 3;

std::size_t leastWidth(std::size_t natural, bool mayBeCut) {
    return mayBeCut ? std::min(natural, kLeastCut) : natural;
}

// Adds a cell on lines of its own.
void addWrapped(const std::string& text, const Cell& cell, const RowPlace& place) {
    const std::size_t indent = std::min(place.indent, place.width - 1);
    for (const std::string& part : wrapText(text, place.width - indent)) {
        LineBuilder line(indent, place.color);
        line.add(part, cell, 0);
        place.lines.push_back(line.take());
    }
}

// Fills lines with cells from left to right.
class RowFolder {
public:
    explicit RowFolder(const RowPlace& place)
        : place_(place), furtherIndent_(place.indent + kFurtherIndent), used_(place.indent) {}

    void add(const Cell& cell) {
        std::string text = textOnOneLine(cell);
        const std::size_t natural = displayWidth(text);
        if (natural == 0)
            return;
        const std::size_t least = leastWidth(natural, cell.mayBeCut);
        if (!fields_.empty() && used_ + kColumnGap + least > place_.width)
            endLine();
        used_ += (fields_.empty() ? 0 : kColumnGap) + least;
        fields_.push_back({&cell, std::move(text), natural, least});
    }

    void endLine() {
        if (fields_.size() == 1 && used_ > place_.width)
            addWrapped(fields_.front().text, *fields_.front().cell, place_);
        else if (!fields_.empty())
            addFields();
        fields_.clear();
        startFurtherLine();
    }

    // Continues a row whose first line exists already.
    void startFurtherLine() { place_.indent = used_ = furtherIndent_; }

private:
    struct Field {
        const Cell* cell;
        std::string text;
        std::size_t natural; // width
        std::size_t least;   // width to which it may be cut
    };

    // The cells that may be cut get the columns that the line has left.
    void addFields() {
        LineBuilder line(place_.indent, place_.color);
        for (const Field& field : fields_) {
            const std::size_t width = std::min(field.natural, field.least + place_.width - used_);
            used_ += width - field.least;
            line.add(cutText(field.text, width), *field.cell, width);
        }
        place_.lines.push_back(line.take());
    }

    RowPlace place_; // of the current line
    std::size_t furtherIndent_;
    std::size_t used_; // columns of the current line, with cells at their least width
    std::vector<Field> fields_;
};

} // namespace

void LineBuilder::add(std::string_view text, const Cell& cell, std::size_t width) {
    if (!text.empty()) {
        line_.append(std::exchange(owedSpaces_, 0), ' ');
        addPainted(text, cell);
    }
    owedSpaces_ += width - std::min(width, displayWidth(text)) + kColumnGap;
}

void LineBuilder::addPainted(std::string_view text, const Cell& cell) {
    if (!color_ || !cell.splitter) {
        line_ += painted(text, cell.paint, color_);
        return;
    }
    for (const auto& [part, isMatch] : (*cell.splitter)(text))
        line_ += painted(part, isMatch ? Paint::Match : cell.paint, color_);
}

std::string textOnOneLine(const Cell& cell) {
    std::string text = visibleText(cell.text);
    std::ranges::replace(text, '\n', ' ');
    return text;
}

void addFieldPerLine(const std::vector<Cell>& cells, const std::vector<Cell>& titles,
                     RowPlace place) {
    const std::size_t furtherIndent = place.indent + kFurtherIndent;
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const Cell& cell = cells[column];
        if (cell.text.empty())
            continue;
        const bool hasTitle = column > 0 && column < titles.size();
        const std::string title = hasTitle ? visibleLine(titles[column].text) + ": " : "";
        addWrapped(title + visibleText(cell.text), cell, place);
        place.indent = furtherIndent;
    }
}

void addFoldedRow(const std::vector<Cell>& cells, RowPlace place) {
    RowFolder folder(place);
    for (const Cell& cell : cells)
        folder.add(cell);
    folder.endLine();
}

FoldedRows::FoldedRows(std::vector<ColumnExtent> columns, const RowPlace& place)
    : place_(place), columns_(std::move(columns)) {
    if (!chooseColumns(kNoLimit))
        chooseColumns(place.width / kPartForFirstColumn);
}

// Returns whether all columns fit on the first line.
bool FoldedRows::chooseColumns(std::size_t widestFirst) {
    widths_.clear();
    std::size_t used = place_.indent;
    for (const auto& [width, mayBeCut] : columns_) {
        const std::size_t least =
            std::min(leastWidth(width, mayBeCut), widths_.empty() ? widestFirst : kNoLimit);
        const std::size_t gap = used > place_.indent && least > 0 ? kColumnGap : 0;
        if (used + gap + least > place_.width)
            break;
        used += gap + least;
        widths_.push_back(least);
    }
    for (std::size_t index = 0; index < widths_.size(); ++index) {
        if (!columns_[index].mayBeCut)
            continue;
        const std::size_t least = widths_[index];
        widths_[index] = std::min(columns_[index].width, least + place_.width - used);
        used += widths_[index] - least;
    }
    return widths_.size() == columns_.size();
}

bool FoldedRows::fits(const std::vector<Cell>& cells) const {
    for (std::size_t column = 0; column < std::min(cells.size(), widths_.size()); ++column) {
        if (widths_[column] > 0 && !cells[column].mayBeCut &&
            displayWidth(textOnOneLine(cells[column])) > widths_[column])
            return false;
    }
    return true;
}

void FoldedRows::add(const std::vector<Cell>& cells) const {
    if (!fits(cells))
        return addFoldedRow(cells, place_);
    LineBuilder line(place_.indent, place_.color);
    for (std::size_t column = 0; column < std::min(cells.size(), widths_.size()); ++column) {
        if (widths_[column] > 0)
            line.add(cutText(textOnOneLine(cells[column]), widths_[column]), cells[column],
                     widths_[column]);
    }
    place_.lines.push_back(line.take());
    RowFolder folder(place_);
    folder.startFurtherLine();
    for (std::size_t column = widths_.size(); column < cells.size(); ++column) {
        if (columns_[column].width > 0)
            folder.add(cells[column]);
    }
    folder.endLine();
}

} // namespace refdoc
