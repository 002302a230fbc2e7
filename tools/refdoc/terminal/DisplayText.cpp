#include "tools/refdoc/terminal/DisplayText.hpp"

#include "platform/i18n/Converter.hpp"

#include <boost/algorithm/string/replace.hpp>
#include <utf8proc.h>

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

utf8proc_int32_t nextCodePoint(std::string_view text, std::size_t& position) noexcept {
    utf8proc_int32_t codePoint = 0;
    const utf8proc_ssize_t length =
        utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + position,
                         static_cast<utf8proc_ssize_t>(text.size() - position), &codePoint);
    position += length < 0 ? 1 : static_cast<std::size_t>(length);
    return length < 0 ? 0xFFFD : codePoint;
}

std::size_t columnsOf(utf8proc_int32_t codePoint) noexcept {
    const auto columns = static_cast<std::size_t>(utf8proc_charwidth(codePoint));
    switch (utf8proc_category(codePoint)) {
    // utf8proc gives no width to spacing marks and to characters that it does not know. Terminals
    // give a column to both.
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_CN: return std::max<std::size_t>(columns, 1);
    default: return columns;
    }
}

} // namespace

Grapheme nextGrapheme(std::string_view text, std::size_t& position) noexcept {
    const std::size_t start = position;
    const utf8proc_int32_t base = nextCodePoint(text, position);
    std::size_t columns = columnsOf(base);
    const bool isWide = columns > 1;
    utf8proc_int32_t last = base;
    utf8proc_int32_t state = 0;
    for (std::size_t next = position; next < text.size(); position = next) {
        const utf8proc_int32_t codePoint = nextCodePoint(text, next);
        if (utf8proc_grapheme_break_stateful(last, codePoint, &state))
            break;
        columns += columnsOf(codePoint);
        last = codePoint;
    }
    return {text.substr(start, position - start), static_cast<char32_t>(base),
            std::min(columns, kWidestGrapheme), isWide};
}

std::size_t displayWidth(std::string_view text) noexcept {
    if (isPrintableAscii(text))
        return text.size();
    std::size_t width = 0;
    for (std::size_t position = 0; position < text.size();)
        width += nextGrapheme(text, position).width;
    return width;
}

std::string visibleText(std::u16string_view text) {
    if (std::ranges::none_of(text, isControl))
        return fl::i18n::to_string(text);
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
        line += visibleLine(field) + '\t';
    if (!line.empty())
        line.pop_back();
    return line + '\n';
}

} // namespace refdoc
