#include "tools/refdoc/diff/words/WordTokens.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace refdoc::diff {

namespace {

enum class Type { Space, Word, Single };

// A grapheme within a text.
struct Unit {
    std::size_t end;
    Type type;
};

struct Range {
    char32_t first;
    char32_t last;

    bool contains(char32_t codePoint) const { return codePoint >= first && codePoint <= last; }
};

constexpr std::array kHangul{Range{0x1100, 0x11FF}, Range{0x3130, 0x318F}, Range{0xA960, 0xA97F},
                             Range{0xAC00, 0xD7FF}};

// Thai and Lao, Myanmar, Khmer.
constexpr std::array kWithoutSpaces{Range{0x0E00, 0x0EFF}, Range{0x1000, 0x109F},
                                    Range{0x1780, 0x17FF}};

template <class Ranges>
bool isIn(const Ranges& ranges, char32_t codePoint) {
    return std::ranges::any_of(ranges,
                               [&](const Range& range) { return range.contains(codePoint); });
}

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

Type typeOfAscii(char byte) {
    if (byte == ' ' || (byte >= '\t' && byte <= '\r'))
        return Type::Space;
    const bool isWord = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                        (byte >= '0' && byte <= '9') || byte == '_';
    return isWord ? Type::Word : Type::Single;
}

Type typeOf(const Grapheme& grapheme) {
    const char32_t base = grapheme.base;
    if (base < 0x80)
        return typeOfAscii(static_cast<char>(base));
    const utf8proc_category_t category = utf8proc_category(static_cast<utf8proc_int32_t>(base));
    if (category == UTF8PROC_CATEGORY_ZS)
        return Type::Space;
    if (category < UTF8PROC_CATEGORY_LU || category > UTF8PROC_CATEGORY_NO)
        return Type::Single;
    const bool standsAlone = grapheme.isWide ? !isIn(kHangul, base) : isIn(kWithoutSpaces, base);
    return standsAlone ? Type::Single : Type::Word;
}

Unit unitAt(std::string_view text, std::size_t position) {
    const std::size_t next = position + 1;
    // An ASCII character is a grapheme unless a mark follows.
    if (isAscii(text[position]) && (next == text.size() || isAscii(text[next])))
        return {next, typeOfAscii(text[position])};
    const Grapheme grapheme = nextGrapheme(text, position);
    return {position, typeOf(grapheme)};
}

} // namespace

void appendTokens(std::string_view text, std::vector<WordToken>& tokens) {
    for (std::size_t begin = 0; begin < text.size();) {
        const auto [firstEnd, type] = unitAt(text, begin);
        std::size_t end = firstEnd;
        while (type != Type::Single && end < text.size()) {
            const Unit next = unitAt(text, end);
            if (next.type != type)
                break;
            end = next.end;
        }
        tokens.push_back({text.substr(begin, end - begin), type == Type::Space});
        begin = end;
    }
}

} // namespace refdoc::diff
