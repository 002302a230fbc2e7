#include "platform/i18n/Utf8.hpp"

#include <cstdint>

namespace fl::i18n {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// What a lead byte promises. The range of the second byte shuts out overlong forms, surrogates
// and what lies above U+10FFFF; every later byte is any of 80..BF.
struct Lead {
    std::size_t length; // 0: no sequence starts with this byte
    std::uint8_t payload;
    std::uint8_t secondMin;
    std::uint8_t secondMax;
};

constexpr Lead classify(std::uint8_t byte) noexcept {
    if (byte >= 0xC2 && byte <= 0xDF)
        return {2, static_cast<std::uint8_t>(byte & 0x1F), 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF) {
        const std::uint8_t min = byte == 0xE0 ? 0xA0 : 0x80;
        const std::uint8_t max = byte == 0xED ? 0x9F : 0xBF;
        return {3, static_cast<std::uint8_t>(byte & 0x0F), min, max};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        const std::uint8_t min = byte == 0xF0 ? 0x90 : 0x80;
        const std::uint8_t max = byte == 0xF4 ? 0x8F : 0xBF;
        return {4, static_cast<std::uint8_t>(byte & 0x07), min, max};
    }
    return {0, 0, 0, 0};
}

} // namespace

DecodedSequence decodeUtf8(std::string_view text) noexcept {
    const auto byteAt = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    if (byteAt(0) < 0x80)
        return {byteAt(0), 1, true};

    const Lead lead = classify(byteAt(0));
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
