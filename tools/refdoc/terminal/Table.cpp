#include "tools/refdoc/terminal/Table.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <boost/algorithm/string/split.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

namespace refdoc {

namespace {

constexpr std::size_t kGap = 2;           // columns between two cells
constexpr std::size_t kHeadingIndent = 2; // of the rows below a heading

using Lines = std::vector<std::string>;

std::size_t widestLine(const std::string& text) {
    Lines lines;
    boost::split(lines, text, [](char byte) { return byte == '\n'; });
    return displayWidth(*std::ranges::max_element(lines, {}, displayWidth));
}

// Puts the cells of a row on one line, without trailing spaces.
class LineBuilder {
public:
    LineBuilder(std::size_t indent, bool color) : color_(color), owed_(indent) {}

    void add(std::string_view text, const Cell& cell, std::size_t width) {
        if (!text.empty()) {
            line_.append(std::exchange(owed_, 0), ' ');
            addPainted(text, cell);
        }
        owed_ += width - std::min(width, displayWidth(text)) + kGap;
    }

    std::string take() { return std::move(line_); }

private:
    void addPainted(std::string_view text, const Cell& cell) {
        if (!color_ || !cell.splitter) {
            line_ += painted(text, cell.paint, color_);
            return;
        }
        for (const auto& [part, isMatch] : (*cell.splitter)(text))
            line_ += painted(part, isMatch ? Paint::Match : cell.paint, color_);
    }

    bool color_;
    std::string line_;
    std::size_t owed_; // spaces before the next text
};

std::string headingLine(const std::vector<Cell>& words, bool color) {
    LineBuilder line(/*indent=*/0, color);
    for (const Cell& word : words) {
        const std::string text = visibleLine(word.text);
        line.add(text, word, displayWidth(text));
    }
    return line.take();
}

// Measures rows, then lays them out.
class Grid {
public:
    Grid(std::size_t indent, Table::Overflow overflow, bool color)
        : indent_(indent), overflow_(overflow), color_(color) {}

    void measure(const std::vector<Cell>& cells) {
        widths_.resize(std::max(widths_.size(), cells.size()));
        for (std::size_t column = 0; column < cells.size(); ++column)
            widen(column, cells[column]);
    }

    // A column that has only a title stays empty.
    void measureTitles(const std::vector<Cell>& titles) {
        widths_.resize(std::max(widths_.size(), titles.size()));
        for (std::size_t column = 0; column < titles.size(); ++column) {
            if (widths_[column] > 0)
                widen(column, titles[column]);
        }
    }

    void limitWidth(std::size_t width) {
        const auto shown = static_cast<std::size_t>(
            std::ranges::count_if(widths_, [](std::size_t natural) { return natural > 0; }));
        const std::size_t taken = indent_ + (shown > 0 ? shown - 1 : 0) * kGap;
        widths_ = shareWidth(widths_, width - std::min(width, taken));
    }

    void layOut(const std::vector<Cell>& cells, Lines& lines) const {
        std::vector<Lines> texts;
        std::size_t height = 0;
        for (std::size_t column = 0; column < cells.size(); ++column) {
            texts.push_back(fit(visible(cells[column]), widths_[column]));
            height = std::max(height, texts.back().size());
        }
        for (std::size_t index = 0; index < height; ++index)
            lines.push_back(lineAt(index, cells, texts));
    }

private:
    void widen(std::size_t column, const Cell& cell) {
        widths_[column] = std::max(widths_[column], widestLine(visible(cell)));
    }

    // A row that is cut is one line.
    std::string visible(const Cell& cell) const {
        std::string text = visibleText(cell.text);
        if (overflow_ == Table::Overflow::Cut)
            std::ranges::replace(text, '\n', ' ');
        return text;
    }

    Lines fit(const std::string& text, std::size_t width) const {
        if (width == 0)
            return {};
        return overflow_ == Table::Overflow::Wrap ? wrapText(text, width)
                                                  : Lines{cutText(text, width)};
    }

    std::string lineAt(std::size_t index, const std::vector<Cell>& cells,
                       const std::vector<Lines>& texts) const {
        LineBuilder line(indent_, color_);
        for (std::size_t column = 0; column < cells.size(); ++column) {
            if (widths_[column] > 0)
                line.add(index < texts[column].size() ? texts[column][index] : "", cells[column],
                         widths_[column]);
        }
        return line.take();
    }

    std::size_t indent_;
    Table::Overflow overflow_;
    bool color_;
    std::vector<std::size_t> widths_; // of the columns; 0: the column is empty and left out
};

} // namespace

Table::Table(const std::vector<std::u16string>& titles) {
    for (const std::u16string& title : titles)
        titles_.push_back({title, Paint::Dim});
}

std::vector<std::string> Table::layOut(std::size_t width, Overflow overflow, bool color) const {
    const bool hasHeadings = std::ranges::any_of(rows_, &Row::isHeading);
    Grid grid(hasHeadings ? kHeadingIndent : 0, overflow, color);
    for (const Row& row : rows_) {
        if (!row.isHeading)
            grid.measure(row.cells);
    }
    grid.measureTitles(titles_);
    grid.limitWidth(width);

    std::vector<std::string> lines;
    if (!rows_.empty())
        grid.layOut(titles_, lines);
    for (const Row& row : rows_) {
        if (!row.isHeading) {
            grid.layOut(row.cells, lines);
            continue;
        }
        if (!lines.empty())
            lines.emplace_back();
        lines.push_back(headingLine(row.cells, color));
    }
    return lines;
}

} // namespace refdoc
