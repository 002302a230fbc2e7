#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fl::i18n {

/// What one step of decoding UTF-8 took from the text.
struct DecodedSequence {
    char32_t codePoint; ///< U+FFFD for an ill-formed sequence
    std::size_t length; ///< bytes that belong to it, 1 to 4
    bool isWellFormed;
};

/// What a lead byte promises. The range of the second byte shuts out overlong forms, surrogates and
/// what lies above U+10FFFF; every later byte is any of 80..BF.
struct Utf8Lead {
    std::size_t length; ///< of the whole sequence; 0: no sequence starts with this byte
    std::uint8_t payload;
    std::uint8_t secondMin;
    std::uint8_t secondMax;
};

constexpr Utf8Lead classifyUtf8Lead(std::uint8_t byte) noexcept {
    const auto payload = [&](int mask) { return static_cast<std::uint8_t>(byte & mask); };
    if (byte < 0x80)
        return {1, byte, 0, 0};
    if (byte >= 0xC2 && byte <= 0xDF)
        return {2, payload(0x1F), 0x80, 0xBF};
    if (byte == 0xE0)
        return {3, payload(0x0F), 0xA0, 0xBF};
    if (byte == 0xED)
        return {3, payload(0x0F), 0x80, 0x9F};
    if (byte >= 0xE1 && byte <= 0xEF)
        return {3, payload(0x0F), 0x80, 0xBF};
    if (byte == 0xF0)
        return {4, payload(0x07), 0x90, 0xBF};
    if (byte >= 0xF1 && byte <= 0xF3)
        return {4, payload(0x07), 0x80, 0xBF};
    if (byte == 0xF4)
        return {4, payload(0x07), 0x80, 0x8F};
    return {0, 0, 0, 0};
}

/// Decodes the sequence at the start of `text`, which is not empty. Inline, since it is the inner
/// loop of reading any text but English.
///
/// An ill-formed sequence is maximal: its bytes are those that some well-formed sequence starts
/// with, one byte at the least. E3 41 is the ill-formed E3 and then an A.
constexpr DecodedSequence decodeUtf8(std::string_view text) noexcept {
    constexpr char32_t kReplacement = 0xFFFD;
    const auto byteAt = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };

    const Utf8Lead lead = classifyUtf8Lead(byteAt(0));
    if (lead.length == 0)
        return {kReplacement, 1, false};
    char32_t codePoint = lead.payload;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const std::uint8_t min = i == 1 ? lead.secondMin : 0x80;
        const std::uint8_t max = i == 1 ? lead.secondMax : 0xBF;
        if (i == text.size() || byteAt(i) < min || byteAt(i) > max)
            return {kReplacement, i, false};
        codePoint = codePoint << 6 | (byteAt(i) & 0x3F);
    }
    return {codePoint, lead.length, true};
}

} // namespace fl::i18n
