#include "platform/unicode/Transcoding.hpp"

#include "platform/unicode/Utf8.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace platform {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Longer strings are decoded on the heap, so that threads with small stacks can convert them.
constexpr std::size_t kStackUnits = 1024;

constexpr bool isAscii(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x80;
}

constexpr char16_t widen(char byte) noexcept {
    return static_cast<unsigned char>(byte);
}

constexpr bool isHighSurrogate(char16_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char16_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

char16_t* appendUtf16(char16_t* out, char32_t codePoint) noexcept {
    if (codePoint < 0x10000) {
        *out++ = static_cast<char16_t>(codePoint);
        return out;
    }
    const char32_t offset = codePoint - 0x10000;
    *out++ = static_cast<char16_t>(0xD800 + (offset >> 10));
    *out++ = static_cast<char16_t>(0xDC00 + (offset & 0x3FF));
    return out;
}

// Returns the position of the first byte in memory with its high bit set. There must be one.
std::size_t firstMarkedByte(std::uint64_t word) noexcept {
    const int bits = std::endian::native == std::endian::little ? std::countr_zero(word)
                                                                : std::countl_zero(word);
    return static_cast<std::size_t>(bits) / 8;
}

// Widens the ASCII bytes at the start of a string and returns their number. Most strings are ASCII
// or have long runs of it. `out` has room for as many units as the string has bytes; those after
// the result are unspecified.
std::size_t widenAsciiStart(std::string_view text, char16_t* out) noexcept {
    const char* const bytes = text.data();
    const std::size_t length = text.size();
    std::size_t done = 0;
    for (; length - done >= 8; done += 8) {
        // Widening all eight, even if only some are ASCII, saves a loop over single bytes.
        std::uint64_t word;
        std::memcpy(&word, bytes + done, sizeof word);
        std::transform(bytes + done, bytes + done + 8, out + done, widen);
        const std::uint64_t beyondAscii = word & 0x8080808080808080;
        if (beyondAscii != 0)
            return done + firstMarkedByte(beyondAscii);
    }
    for (; done < length && isAscii(bytes[done]); ++done)
        out[done] = widen(bytes[done]);
    return done;
}

std::size_t decode(std::string_view text, char16_t* const begin) noexcept {
    char16_t* out = begin;
    while (!text.empty()) {
        if (isAscii(text.front())) {
            const std::size_t length = widenAsciiStart(text, out);
            out += length;
            text.remove_prefix(length);
            continue;
        }
        const DecodedSequence sequence = decodeUtf8(text);
        out = appendUtf16(out, sequence.codePoint);
        text.remove_prefix(sequence.length);
    }
    return static_cast<std::size_t>(out - begin);
}

// UTF-8 is validated in blocks. The fixed size lets the compiler process many bytes at once.
constexpr std::size_t kBlockBytes = 64;

// The validity of a byte depends on itself and on the three bytes before it.
constexpr std::size_t kBytesBefore = 3;

// Returns whether this sequence of bytes never occurs in well-formed text. There are no branches,
// so that the compiler can compare many bytes at once.
constexpr bool isIllFormedAt(const char* at) noexcept {
    const auto byte = static_cast<std::uint8_t>(at[0]);
    const auto previous = static_cast<std::uint8_t>(at[-1]);
    const auto second = static_cast<std::uint8_t>(at[-2]);
    const auto third = static_cast<std::uint8_t>(at[-3]);
    const bool isTrail = (byte & 0xC0) == 0x80;
    const bool isTrailExpected = (previous >= 0xC0) | (second >= 0xE0) | (third >= 0xF0);
    const bool isNeverUsed = (byte == 0xC0) | (byte == 0xC1) | (byte >= 0xF5);
    const bool isOverlong =
        ((previous == 0xE0) & (byte < 0xA0)) | ((previous == 0xF0) & (byte < 0x90));
    const bool isSurrogate = (previous == 0xED) & (byte > 0x9F);
    const bool isTooLarge = (previous == 0xF4) & (byte > 0x8F);
    return (isTrail != isTrailExpected) | isNeverUsed | isOverlong | isSurrogate | isTooLarge;
}

// Both also read the bytes before the block.
bool isWellFormedBlock(const char* block) noexcept {
    std::array<bool, kBlockBytes> isIllFormed;
    for (std::size_t i = 0; i < kBlockBytes; ++i)
        isIllFormed[i] = isIllFormedAt(block + i);
    return isIllFormed == std::array<bool, kBlockBytes>{};
}

bool isAsciiBlock(const char* block) noexcept {
    std::uint8_t allBits = 0;
    for (const char* at = block - kBytesBefore; at < block + kBlockBytes; ++at)
        allBits |= static_cast<std::uint8_t>(*at);
    return allBits < 0x80;
}

// Validates a block at the start or at the end of a text. The missing bytes of the block are NUL,
// which is invalid after an incomplete sequence.
bool isWellFormedEdge(std::string_view before, std::string_view bytes) noexcept {
    std::array<char, kBytesBefore + kBlockBytes> padded{};
    std::ranges::copy_backward(before, padded.begin() + kBytesBefore);
    std::ranges::copy(bytes, padded.begin() + kBytesBefore);
    return isWellFormedBlock(padded.data() + kBytesBefore);
}

void appendUtf8(std::string& out, char32_t codePoint) {
    const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
    if (codePoint < 0x80) {
        out += byte(codePoint);
    } else if (codePoint < 0x800) {
        out += {byte(0xC0 | codePoint >> 6), byte(0x80 | (codePoint & 0x3F))};
    } else if (codePoint < 0x10000) {
        out += {byte(0xE0 | codePoint >> 12), byte(0x80 | (codePoint >> 6 & 0x3F)),
                byte(0x80 | (codePoint & 0x3F))};
    } else {
        out += {byte(0xF0 | codePoint >> 18), byte(0x80 | (codePoint >> 12 & 0x3F)),
                byte(0x80 | (codePoint >> 6 & 0x3F)), byte(0x80 | (codePoint & 0x3F))};
    }
}

// One code unit of UTF-16, or a surrogate pair.
struct Utf16Sequence {
    char32_t codePoint;
    std::size_t length;
    bool isWellFormed;
};

Utf16Sequence decodeUtf16(std::u16string_view text) noexcept {
    const char16_t first = text[0];
    if (!isHighSurrogate(first) && !isLowSurrogate(first))
        return {first, 1, true};
    if (isHighSurrogate(first) && text.size() > 1 && isLowSurrogate(text[1])) {
        const char32_t offset = (static_cast<char32_t>(first) - 0xD800) << 10;
        return {0x10000 + offset + (static_cast<char32_t>(text[1]) - 0xDC00), 2, true};
    }
    return {kReplacement, 1, false};
}

} // namespace

std::u16string toUtf16(std::string_view text) {
    // UTF-16 never has more units than UTF-8 has bytes, replacement characters included. The string
    // is constructed once, with its exact size.
    if (text.size() <= kStackUnits) {
        std::array<char16_t, kStackUnits> buffer;
        return {buffer.data(), decode(text, buffer.data())};
    }
    const auto buffer = std::make_unique_for_overwrite<char16_t[]>(text.size());
    return {buffer.get(), decode(text, buffer.get())};
}

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const Utf16Sequence sequence = decodeUtf16(text);
        appendUtf8(out, sequence.codePoint);
        text.remove_prefix(sequence.length);
    }
    return out;
}

bool isWellFormedUtf8(std::string_view text) noexcept {
    if (!isWellFormedEdge({}, text.substr(0, kBlockBytes)))
        return false;
    std::size_t done = kBlockBytes;
    for (; done + kBlockBytes <= text.size(); done += kBlockBytes) {
        const char* const block = text.data() + done;
        if (!isAsciiBlock(block) && !isWellFormedBlock(block))
            return false;
    }
    return done > text.size() ||
           isWellFormedEdge(text.substr(done - kBytesBefore, kBytesBefore), text.substr(done));
}

bool isWellFormedUtf16(std::u16string_view text) noexcept {
    while (!text.empty()) {
        const Utf16Sequence sequence = decodeUtf16(text);
        if (!sequence.isWellFormed)
            return false;
        text.remove_prefix(sequence.length);
    }
    return true;
}

} // namespace platform
