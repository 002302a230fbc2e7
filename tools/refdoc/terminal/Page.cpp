#include "tools/refdoc/terminal/Page.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <boost/algorithm/string/replace.hpp>
#include <fmt/format.h>

#include <algorithm>

namespace refdoc {

namespace {

constexpr std::size_t kNarrowestTable = 40; // in columns of a terminal

} // namespace

void Page::title(std::u16string_view text, char rule) {
    std::vector<std::string> parts = wrapText(visibleLine(text), setup_.textWidth);
    for (std::string& part : parts) {
        boost::replace_all(part, "\u00A0", " ");
        line(0, painted(part, Paint::Heading, setup_.color));
    }
    const std::size_t width = displayWidth(std::ranges::max(parts, {}, displayWidth));
    line(0, painted(std::string(width, rule), Paint::Dim, setup_.color));
}

void Page::heading(std::size_t indent, std::u16string_view text) {
    emptyLine();
    wrapped(indent, visibleLine(text), Paint::Heading);
}

void Page::words(std::size_t indent, const std::vector<Cell>& words) {
    std::vector<std::string> parts;
    parts.reserve(words.size());
    for (const Cell& word : words)
        parts.push_back(painted(visibleLine(word.text), word.paint, setup_.color));
    line(indent, fmt::format("{}", fmt::join(parts, " ")));
}

void Page::text(std::size_t indent, std::u16string_view text, Paint paint) {
    wrapped(indent, visibleText(text), paint);
}

void Page::table(std::size_t indent, const Table& table) {
    const bool isNarrow = setup_.textWidth < kNarrowestTable && table.hasTitles();
    const auto form = isNarrow ? Table::Form::FieldPerLine : Table::Form::Wrapped;
    for (const std::string& row : table.layOut(widthAt(indent), form, setup_.color))
        line(indent, row);
}

void Page::records(const Table& table) {
    const bool isNarrow = setup_.lineWidth < kNarrowestTable;
    const auto form = isNarrow ? Table::Form::FieldPerLine : Table::Form::Folded;
    for (const std::string& row : table.layOut(setup_.lineWidth, form, setup_.color))
        line(0, row);
}

void Page::wrapped(std::size_t indent, std::string_view text, Paint paint) {
    for (const std::string& part : wrapText(text, widthAt(indent)))
        line(indent, painted(part, paint, setup_.color));
}

void Page::line(std::size_t indent, std::string_view text) {
    if (!text.empty())
        page_.append(indent, ' ');
    page_ += text;
    page_ += '\n';
}

std::size_t Page::widthAt(std::size_t indent) const {
    return std::max<std::size_t>(setup_.textWidth - std::min(setup_.textWidth, indent), 1);
}

} // namespace refdoc
