#include "tools/refdoc/terminal/Table.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <algorithm>
#include <utility>

namespace refdoc {

namespace {

constexpr std::size_t kGap = 2;           // columns between two cells
constexpr std::size_t kHeadingIndent = 2; // how far rows stand in from their heading

using Lines = std::vector<std::u16string>;

std::size_t widestLine(const std::u16string& text) {
    std::size_t widest = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(u'\n', start), text.size());
        widest =
            std::max(widest, displayWidth(std::u16string_view(text).substr(start, end - start)));
        start = end + 1;
    }
    return widest;
}

Lines fit(const std::u16string& text, std::size_t width, Table::Overflow overflow) {
    if (overflow == Table::Overflow::Wrap)
        return wrapText(text, width);
    return {cutText(text, width)};
}

// One line across the cells of a row, padded but for the last text on it.
class LineBuilder {
public:
    explicit LineBuilder(bool color) : color_(color) {}

    void add(const std::u16string& text, Paint paint, std::size_t width) {
        if (!text.empty()) {
            line_.append(owed_, ' ');
            owed_ = 0;
            line_ += painted(fl::i18n::to_string(text), paint, color_);
        }
        owed_ += width - std::min(width, displayWidth(text)) + kGap;
    }

    std::string take() { return std::move(line_); }

private:
    bool color_;
    std::string line_;
    std::size_t owed_ = 0; // spaces before the next text
};

std::string headingLine(const std::vector<Cell>& words, bool color) {
    LineBuilder line(color);
    for (const Cell& word : words) {
        const std::u16string text = visibleLine(word.text);
        line.add(text, word.paint, displayWidth(text));
    }
    return line.take();
}

// The visible rows of a table and the widths that their columns get.
class Grid {
public:
    Grid(std::size_t width, Table::Overflow overflow, bool color)
        : width_(width), overflow_(overflow), color_(color) {}

    void measure(const std::vector<Cell>& cells) {
        natural_.resize(std::max(natural_.size(), cells.size()));
        for (std::size_t column = 0; column < cells.size(); ++column)
            natural_[column] = std::max(natural_[column], widestLine(shown(cells[column].text)));
    }

    void measureTitles(const std::vector<std::u16string>& titles) {
        natural_.resize(std::max(natural_.size(), titles.size()));
        for (std::size_t column = 0; column < titles.size(); ++column) {
            if (natural_[column] > 0)
                natural_[column] = std::max(natural_[column], displayWidth(titles[column]));
        }
    }

    void chooseWidths() {
        std::vector<std::size_t> used;
        for (const std::size_t natural : natural_) {
            if (natural > 0)
                used.push_back(natural);
        }
        const std::size_t gaps = used.empty() ? 0 : (used.size() - 1) * kGap;
        const std::vector<std::size_t> shared = shareWidth(used, width_ - std::min(width_, gaps));
        widths_.assign(natural_.size(), 0);
        for (std::size_t column = 0, next = 0; column < natural_.size(); ++column) {
            if (natural_[column] > 0)
                widths_[column] = shared[next++];
        }
    }

    void layOut(const std::vector<Cell>& cells, std::size_t indent,
                std::vector<std::string>& lines) const {
        std::vector<Lines> texts;
        std::size_t height = 0;
        for (std::size_t column = 0; column < cells.size(); ++column) {
            const bool isShown = widths_[column] > 0;
            texts.push_back(isShown ? fit(shown(cells[column].text), widths_[column], overflow_)
                                    : Lines());
            height = std::max(height, texts.back().size());
        }
        for (std::size_t index = 0; index < height; ++index)
            lines.push_back(std::string(indent, ' ') + lineAt(index, cells, texts));
    }

private:
    // A row that is cut is one line, whatever stands in it.
    std::u16string shown(const std::u16string& text) const {
        std::u16string visible = visibleText(text);
        if (overflow_ == Table::Overflow::Cut)
            std::ranges::replace(visible, u'\n', u' ');
        return visible;
    }

    std::string lineAt(std::size_t index, const std::vector<Cell>& cells,
                       const std::vector<Lines>& texts) const {
        LineBuilder line(color_);
        for (std::size_t column = 0; column < cells.size(); ++column) {
            if (widths_[column] > 0)
                line.add(index < texts[column].size() ? texts[column][index] : std::u16string(),
                         cells[column].paint, widths_[column]);
        }
        return line.take();
    }

    std::size_t width_;
    Table::Overflow overflow_;
    bool color_;
    std::vector<std::size_t> natural_; // 0: nothing stands in the column
    std::vector<std::size_t> widths_;  // 0: the column is left out
};

} // namespace

std::vector<std::string> Table::layOut(std::size_t width, Overflow overflow, bool color) const {
    const bool hasHeadings = std::ranges::any_of(rows_, &Row::isHeading);
    const std::size_t indent = hasHeadings ? kHeadingIndent : 0;
    Grid grid(width - std::min(width, indent), overflow, color);
    for (const Row& row : rows_) {
        if (!row.isHeading)
            grid.measure(row.cells);
    }
    grid.measureTitles(titles_);
    grid.chooseWidths();

    std::vector<std::string> lines;
    if (!titles_.empty() && !rows_.empty()) {
        std::vector<Cell> titles;
        for (const std::u16string& title : titles_)
            titles.push_back({title, Paint::Dim});
        grid.layOut(titles, indent, lines);
    }
    for (const Row& row : rows_) {
        if (!row.isHeading) {
            grid.layOut(row.cells, indent, lines);
            continue;
        }
        if (!lines.empty())
            lines.emplace_back();
        lines.push_back(headingLine(row.cells, color));
    }
    return lines;
}

} // namespace refdoc
