#include "tools/refdoc/terminal/Page.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace refdoc {

void Page::title(std::u16string_view text, char rule) {
    std::size_t widest = 0;
    for (const std::string& part : wrapText(visibleLine(text), setup_.textWidth)) {
        line(0, painted(part, Paint::Heading, setup_.color));
        widest = std::max(widest, displayWidth(part));
    }
    line(0, painted(std::string(widest, rule), Paint::Dim, setup_.color));
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
    for (const std::string& row :
         table.layOut(widthAt(indent), Table::Overflow::Wrap, setup_.color))
        line(indent, row);
}

void Page::index(const Table& table) {
    for (const std::string& row :
         table.layOut(setup_.lineWidth, Table::Overflow::Cut, setup_.color))
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
