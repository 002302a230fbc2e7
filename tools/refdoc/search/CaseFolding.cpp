#include "tools/refdoc/search/CaseFolding.hpp"

#include "tools/refdoc/search/CodePoints.hpp"

#include <utf8proc.h>

#include <array>

namespace refdoc {

namespace {

constexpr char16_t lowerAscii(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

void appendFolded(char32_t codePoint, std::u16string& folded) {
    std::array<utf8proc_int32_t, 8> points{}; // the longest folding has three code points
    int boundClass = 0;
    const utf8proc_ssize_t count =
        utf8proc_decompose_char(static_cast<utf8proc_int32_t>(codePoint), points.data(),
                                points.size(), UTF8PROC_CASEFOLD, &boundClass);
    for (std::size_t at = 0; at < static_cast<std::size_t>(count); ++at)
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
