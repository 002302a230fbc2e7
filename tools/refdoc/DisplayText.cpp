#include "tools/refdoc/DisplayText.hpp"

#include "platform/i18n/Converter.hpp"

#include <algorithm>
#include <iterator>

namespace refdoc {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// In ascending order, for binary search.
constexpr Range kWithoutWidth[] = {
    {0x0300, 0x036F},   {0x0483, 0x0489},   {0x0591, 0x05BD},   {0x05BF, 0x05BF}, {0x05C1, 0x05C2},
    {0x05C4, 0x05C5},   {0x05C7, 0x05C7},   {0x0610, 0x061A},   {0x064B, 0x065F}, {0x0670, 0x0670},
    {0x06D6, 0x06DC},   {0x06DF, 0x06E4},   {0x06E7, 0x06E8},   {0x06EA, 0x06ED}, {0x0900, 0x0902},
    {0x093A, 0x093A},   {0x093C, 0x093C},   {0x0941, 0x0948},   {0x094D, 0x094D}, {0x0951, 0x0957},
    {0x0E31, 0x0E31},   {0x0E34, 0x0E3A},   {0x0E47, 0x0E4E},   {0x1160, 0x11FF}, {0x1AB0, 0x1AFF},
    {0x1DC0, 0x1DFF},   {0x200B, 0x200F},   {0x202A, 0x202E},   {0x2060, 0x206F}, {0x20D0, 0x20F0},
    {0x302A, 0x302D},   {0x3099, 0x309A},   {0xFE00, 0xFE0F},   {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
    {0x1F3FB, 0x1F3FF}, {0xE0001, 0xE007F}, {0xE0100, 0xE01EF},
};

constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x23E9, 0x23EC},
    {0x23F0, 0x23F0},   {0x23F3, 0x23F3},   {0x25FD, 0x25FE},   {0x2614, 0x2615},
    {0x2648, 0x2653},   {0x267F, 0x267F},   {0x2693, 0x2693},   {0x26A1, 0x26A1},
    {0x26AA, 0x26AB},   {0x26BD, 0x26BE},   {0x26C4, 0x26C5},   {0x26CE, 0x26CE},
    {0x26D4, 0x26D4},   {0x26EA, 0x26EA},   {0x26F2, 0x26F3},   {0x26F5, 0x26F5},
    {0x26FA, 0x26FA},   {0x26FD, 0x26FD},   {0x2705, 0x2705},   {0x270A, 0x270B},
    {0x2728, 0x2728},   {0x274C, 0x274C},   {0x274E, 0x274E},   {0x2753, 0x2755},
    {0x2757, 0x2757},   {0x2795, 0x2797},   {0x27B0, 0x27B0},   {0x27BF, 0x27BF},
    {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},   {0x2B55, 0x2B55},   {0x2E80, 0x303E},
    {0x3041, 0x33FF},   {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},
    {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},
    {0xFE30, 0xFE6F},   {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},   {0x16FE0, 0x18D08},
    {0x1AFF0, 0x1B2FF}, {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF}, {0x1F18E, 0x1F18E},
    {0x1F191, 0x1F19A}, {0x1F200, 0x1F320}, {0x1F32D, 0x1F335}, {0x1F337, 0x1F37C},
    {0x1F37E, 0x1F393}, {0x1F3A0, 0x1F3CA}, {0x1F3CF, 0x1F3D3}, {0x1F3E0, 0x1F3F0},
    {0x1F3F4, 0x1F3F4}, {0x1F3F8, 0x1F43E}, {0x1F440, 0x1F440}, {0x1F442, 0x1F4FC},
    {0x1F4FF, 0x1F53D}, {0x1F54B, 0x1F54E}, {0x1F550, 0x1F567}, {0x1F57A, 0x1F57A},
    {0x1F595, 0x1F596}, {0x1F5A4, 0x1F5A4}, {0x1F5FB, 0x1F64F}, {0x1F680, 0x1F6C5},
    {0x1F6CC, 0x1F6CC}, {0x1F6D0, 0x1F6D2}, {0x1F6D5, 0x1F6D7}, {0x1F6DC, 0x1F6DF},
    {0x1F6EB, 0x1F6EC}, {0x1F6F4, 0x1F6FC}, {0x1F7E0, 0x1F7EB}, {0x1F90C, 0x1F9FF},
    {0x1FA70, 0x1FAFF}, {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD},
};

template <std::size_t N>
bool isIn(const Range (&ranges)[N], char32_t codePoint) noexcept {
    const auto found = std::ranges::lower_bound(ranges, codePoint, {}, &Range::last);
    return found != std::end(ranges) && found->first <= codePoint;
}

constexpr bool isHighSurrogate(char16_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char16_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

constexpr bool isControl(char16_t unit) noexcept {
    return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F);
}

char16_t pictureOf(char16_t control) noexcept {
    if (control < 0x20)
        return static_cast<char16_t>(0x2400 + control);
    return control == 0x7F ? u'\x2421' : u'\xFFFD';
}

} // namespace

char32_t nextCodePoint(std::u16string_view text, std::size_t& position) noexcept {
    const char16_t unit = text[position++];
    if (isHighSurrogate(unit) && position < text.size() && isLowSurrogate(text[position])) {
        const char16_t low = text[position++];
        return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{low} - 0xDC00);
    }
    return isHighSurrogate(unit) || isLowSurrogate(unit) ? char32_t{0xFFFD} : char32_t{unit};
}

std::size_t columnsOf(char32_t codePoint) noexcept {
    if (codePoint < 0x0300)
        return 1;
    if (isIn(kWithoutWidth, codePoint))
        return 0;
    return isIn(kWide, codePoint) ? 2 : 1;
}

std::size_t displayWidth(std::u16string_view text) noexcept {
    std::size_t width = 0;
    for (std::size_t position = 0; position < text.size();)
        width += columnsOf(nextCodePoint(text, position));
    return width;
}

std::u16string visibleText(std::u16string_view text) {
    std::u16string visible;
    visible.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (unit == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n')
            continue;
        if (unit == u'\t')
            visible += u' ';
        else
            visible += isControl(unit) && unit != u'\n' ? pictureOf(unit) : unit;
    }
    return visible;
}

std::u16string visibleLine(std::u16string_view text) {
    std::u16string visible(text);
    for (char16_t& unit : visible) {
        if (isControl(unit))
            unit = pictureOf(unit);
    }
    return visible;
}

std::string visibleLine(std::string_view text) {
    const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
    if (std::ranges::all_of(text, isPlain))
        return std::string(text);
    return fl::i18n::to_string(visibleLine(fl::i18n::to_ustring(text)));
}

} // namespace refdoc
