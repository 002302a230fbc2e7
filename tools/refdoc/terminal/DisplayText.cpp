#include "tools/refdoc/terminal/DisplayText.hpp"

#include "platform/i18n/Converter.hpp"

#include <boost/algorithm/string/replace.hpp>
#include <unigbrk.h>
#include <uniwidth.h>

#include <algorithm>
#include <utility>

namespace refdoc {

namespace {

constexpr std::size_t kWidestGrapheme = 2;

constexpr bool isControl(char16_t unit) noexcept {
    return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F);
}

char16_t pictureOf(char16_t control) noexcept {
    if (control < 0x20)
        return static_cast<char16_t>(0x2400 + control);
    return control == 0x7F ? u'\x2421' : u'\xFFFD';
}

std::string withPictures(std::u16string text, std::u16string_view keptControls) {
    for (char16_t& unit : text) {
        if (isControl(unit) && keptControls.find(unit) == std::u16string_view::npos)
            unit = pictureOf(unit);
    }
    return fl::i18n::to_string(text);
}

bool isPrintableAscii(std::string_view text) noexcept {
    return std::ranges::all_of(text, [](char byte) { return byte >= ' ' && byte <= '~'; });
}

const unsigned char* bytesOf(std::string_view text) noexcept {
    return reinterpret_cast<const unsigned char*>(text.data());
}

std::size_t widthOf(std::string_view grapheme) noexcept {
    const int width = u8_width(bytesOf(grapheme), grapheme.size(), "UTF-8");
    return std::min(static_cast<std::size_t>(width), kWidestGrapheme);
}

} // namespace

std::vector<Grapheme> graphemesOf(std::string_view text) {
    std::string isStart(text.size(), 0); // for each byte
    u8_grapheme_breaks(bytesOf(text), text.size(), isStart.data());
    std::vector<Grapheme> graphemes;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(isStart.find('\1', start + 1), text.size());
        const std::string_view grapheme = text.substr(start, end - start);
        graphemes.push_back({grapheme, widthOf(grapheme)});
        start = end;
    }
    return graphemes;
}

std::size_t displayWidth(std::string_view text) {
    if (isPrintableAscii(text))
        return text.size();
    std::size_t width = 0;
    for (const Grapheme& grapheme : graphemesOf(text))
        width += grapheme.width;
    return width;
}

std::string visibleText(std::u16string_view text) {
    std::u16string visible = boost::replace_all_copy(std::u16string(text), u"\r\n", u"\n");
    std::ranges::replace(visible, u'\t', u' ');
    return withPictures(std::move(visible), u"\n");
}

std::string visibleLine(std::u16string_view text) {
    return withPictures(std::u16string(text), u"");
}

std::string visibleLine(std::string_view text) {
    return isPrintableAscii(text) ? std::string(text) : visibleLine(fl::i18n::to_ustring(text));
}

std::string tabSeparatedLine(const std::vector<std::u16string>& fields) {
    std::string line;
    for (const std::u16string& field : fields)
        line += (&field == &fields.front() ? "" : "\t") + visibleLine(field);
    return line + '\n';
}

} // namespace refdoc
