#include "tools/refdoc/html/HtmlWriter.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>
#include <utility>

namespace refdoc::html {

namespace {

std::string_view escapeOf(char character) noexcept {
    switch (character) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return {};
    }
}

bool isSpecial(char character) noexcept {
    return !escapeOf(character).empty();
}

} // namespace

void HtmlWriter::text(std::u16string_view text) {
    escape(visibleText(text));
}

void HtmlWriter::text(std::string_view text) {
    escape(text);
}

void HtmlWriter::element(Name name, Attributes attributes, std::u16string_view content) {
    element(name, attributes, [&] { text(content); });
}

void HtmlWriter::element(Name name, Attributes attributes, std::string_view content) {
    element(name, attributes, [&] { text(content); });
}

void HtmlWriter::element(Name name, Attributes attributes, const char* content) {
    element(name, attributes, std::string_view(content));
}

std::string HtmlWriter::take() {
    return std::exchange(html_, {});
}

void HtmlWriter::open(Name name, Attributes attributes) {
    html_ += '<';
    html_ += name.text();
    for (const Attribute& attribute : attributes) {
        if (!attribute.value)
            continue;
        html_ += ' ';
        html_ += attribute.name.text();
        if (attribute.value->empty())
            continue;
        html_ += "=\"";
        escape(*attribute.value);
        html_ += '"';
    }
    html_ += '>';
}

void HtmlWriter::close(Name name) {
    html_ += "</";
    html_ += name.text();
    html_ += '>';
}

void HtmlWriter::escape(std::string_view text) {
    for (auto written = text.begin(); written != text.end();) {
        const auto special = std::find_if(written, text.end(), isSpecial);
        html_.append(written, special);
        written = special;
        if (special != text.end())
            html_ += escapeOf(*written++);
    }
}

} // namespace refdoc::html
