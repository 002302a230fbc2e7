#include "tools/refdoc/html/HtmlWriter.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace refdoc::html {

namespace {

constexpr std::string_view escapeOf(char character) noexcept {
    switch (character) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return {};
    }
}

constexpr std::array<bool, 256> kIsSpecial = [] {
    std::array<bool, 256> isSpecial{};
    for (std::size_t byte = 0; byte < isSpecial.size(); ++byte)
        isSpecial[byte] = !escapeOf(static_cast<char>(byte)).empty();
    return isSpecial;
}();

constexpr bool isSpecial(char character) noexcept {
    return kIsSpecial[static_cast<unsigned char>(character)];
}

constexpr std::array<bool, 128> kIsPlain = [] {
    std::array<bool, 128> isPlain{};
    for (char character = ' '; character <= '~'; ++character)
        isPlain[static_cast<unsigned char>(character)] = !isSpecial(character);
    return isPlain;
}();

constexpr bool isPlain(char16_t unit) noexcept {
    return unit < kIsPlain.size() && kIsPlain[unit];
}

constexpr char16_t kFirstIsolate = u'\u2066'; // three characters that begin an isolate
constexpr char16_t kEndOfIsolate = u'\u2069';

// Ends each directional isolate in the string that begins it, and removes ends without a beginning.
// Otherwise the end of the element "bdi" would end an isolate in it, and not the element.
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
    // Most strings need neither conversion nor escapes.
    const auto rest = std::ranges::find_if_not(text, isPlain);
    const std::size_t start = html_.size();
    html_.resize(start + static_cast<std::size_t>(rest - text.begin()));
    std::transform(text.begin(), rest, html_.begin() + static_cast<std::ptrdiff_t>(start),
                   [](char16_t unit) { return static_cast<char>(unit); });
    if (rest != text.end())
        escape(visibleText(withClosedIsolates({rest, text.end()})));
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
