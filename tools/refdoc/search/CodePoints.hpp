#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace refdoc {

// Code points of UTF-16 strings. An unpaired surrogate counts as a code point.

constexpr bool isHighSurrogate(char16_t unit) noexcept {
    return (unit & 0xFC00) == 0xD800;
}

constexpr bool isLowSurrogate(char16_t unit) noexcept {
    return (unit & 0xFC00) == 0xDC00;
}

/// Returns the code point at a position within the text, and moves the position past it.
constexpr char32_t codePointAt(std::u16string_view text, std::size_t& position) noexcept {
    const char16_t unit = text[position++];
    if (!isHighSurrogate(unit) || position == text.size() || !isLowSurrogate(text[position]))
        return unit;
    return 0x10000U + ((unit & 0x3FFU) << 10U) + (text[position++] & 0x3FFU);
}

/// Returns the code point that ends before a position, which is not 0.
constexpr char32_t codePointBefore(std::u16string_view text, std::size_t position) noexcept {
    std::size_t start = position - 1;
    if (start > 0 && isLowSurrogate(text[start]) && isHighSurrogate(text[start - 1]))
        --start;
    return codePointAt(text, start);
}

inline void appendCodePoint(char32_t codePoint, std::u16string& text) {
    if (codePoint >= 0x10000) {
        text += static_cast<char16_t>(0xD800U + ((codePoint - 0x10000U) >> 10U));
        codePoint = 0xDC00U + (codePoint & 0x3FFU);
    }
    text += static_cast<char16_t>(codePoint);
}

} // namespace refdoc
