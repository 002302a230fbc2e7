#include "tools/refdoc/search/CaseFolding.hpp"

#include "tools/refdoc/search/CodePoints.hpp"

#include <unicase.h>

#include <array>

namespace refdoc {

namespace {

constexpr char16_t lowerAscii(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

constexpr bool isSurrogate(char32_t codePoint) noexcept {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

void appendFolded(char32_t codePoint, std::u16string& folded) {
    if (isSurrogate(codePoint))
        return appendCodePoint(codePoint, folded);
    const auto point = static_cast<ucs4_t>(codePoint);
    std::array<ucs4_t, 16> points{}; // the longest folding has three code points
    std::size_t count = points.size();
    u32_casefold(&point, 1, nullptr, nullptr, points.data(), &count);
    for (std::size_t at = 0; at < count; ++at)
        appendCodePoint(static_cast<char32_t>(points[at]), folded);
}

} // namespace

void foldCase(std::u16string_view text, std::u16string& folded, std::vector<std::size_t>* origins) {
    folded.clear();
    if (origins)
        origins->clear();
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        if (text[at] < 0x80)
            folded += lowerAscii(text[at++]);
        else
            appendFolded(codePointAt(text, at), folded);
        if (origins)
            origins->resize(folded.size(), start);
    }
}

} // namespace refdoc
