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

constexpr char16_t kFirstIsolate = u'\u2066'; // three characters that begin an isolate
constexpr char16_t kEndOfIsolate = u'\u2069';

// Ends each directional isolate in the string that begins it, and removes ends without a beginning.
// Otherwise the first end after the string, that of its element, would not be the end of the
// element.
std::u16string withClosedIsolates(std::u16string_view text) {
    std::u16string closed;
    std::size_t depth = 0;
    for (const char16_t character : text) {
        if (character == kEndOfIsolate) {
            if (depth == 0)
                continue;
            --depth;
        } else if (character >= kFirstIsolate && character < kEndOfIsolate) {
            ++depth;
        }
        closed += character;
    }
    return closed.append(depth, kEndOfIsolate);
}

} // namespace

void HtmlWriter::text(std::u16string_view text) {
    escape(visibleText(withClosedIsolates(text)));
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
