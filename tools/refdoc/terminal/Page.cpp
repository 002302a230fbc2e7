#include "tools/refdoc/terminal/Page.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <algorithm>

namespace refdoc {

using fl::i18n::to_string;

void Page::title(std::u16string_view text, char rule) {
    std::size_t widest = 0;
    for (const std::u16string& part : wrapText(visibleLine(text), setup_.textWidth)) {
        line(0, painted(to_string(part), Paint::Heading, setup_.color));
        widest = std::max(widest, displayWidth(part));
    }
    line(0, painted(std::string(widest, rule), Paint::Dim, setup_.color));
}

void Page::heading(std::size_t indent, std::u16string_view text) {
    emptyLine();
    for (const std::u16string& part : wrapText(visibleLine(text), widthAt(indent)))
        line(indent, painted(to_string(part), Paint::Heading, setup_.color));
}

void Page::words(std::size_t indent, const std::vector<Cell>& words) {
    std::string text;
    for (const Cell& word : words) {
        if (!text.empty())
            text += ' ';
        text += painted(to_string(visibleLine(word.text)), word.paint, setup_.color);
    }
    line(indent, text);
}

void Page::text(std::size_t indent, std::u16string_view text, Paint paint) {
    for (const std::u16string& part : wrapText(visibleText(text), widthAt(indent)))
        line(indent, painted(to_string(part), paint, setup_.color));
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
