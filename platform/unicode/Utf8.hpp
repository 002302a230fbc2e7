#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

/// One decoded sequence of UTF-8.
struct DecodedSequence {
    char32_t codePoint; ///< U+FFFD if the sequence is ill-formed
    std::size_t length; ///< in bytes, 1 to 4
    bool isWellFormed;
};

/// What a lead byte requires of the sequence that it starts. The range of the second byte excludes
/// overlong forms, surrogates and values above U+10FFFF; later bytes may be any of 80..BF.
struct Utf8Lead {
    std::size_t length; ///< of the sequence in bytes; 0 if no sequence starts with this byte
    std::uint8_t payload;
    std::uint8_t secondMin;
    std::uint8_t secondMax;
};

/// Returns what a byte requires as the first of a sequence.
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

/// Decodes the sequence at the start of a string. Inline, because languages other than English
/// spend much of their reading time here.
///
/// An ill-formed sequence is maximal: the longest prefix of a well-formed sequence, and at least
/// one byte. E3 41 is the ill-formed sequence E3, followed by an A.
/// \param text  not empty
constexpr DecodedSequence decodeUtf8(std::string_view text) noexcept {
    constexpr char32_t kReplacement = 0xFFFD;
    const auto byteAt = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const auto isTrail = [&](std::size_t i) { return (byteAt(i) & 0xC0) == 0x80; };
    const auto payloadOf = [&](std::size_t i) { return static_cast<char32_t>(byteAt(i) & 0x3F); };

    // Most non-ASCII characters have two or three bytes; these two cases need fewer comparisons.
    if (byteAt(0) >= 0xC2 && byteAt(0) <= 0xDF && text.size() > 1 && isTrail(1))
        return {static_cast<char32_t>(byteAt(0) & 0x1F) << 6 | payloadOf(1), 2, true};
    if ((byteAt(0) & 0xF0) == 0xE0 && text.size() > 2 && isTrail(1) && isTrail(2)) {
        const char32_t codePoint =
            static_cast<char32_t>(byteAt(0) & 0x0F) << 12 | payloadOf(1) << 6 | payloadOf(2);
        if (codePoint >= 0x800 && (codePoint < 0xD800 || codePoint > 0xDFFF))
            return {codePoint, 3, true};
    }

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

} // namespace platform
