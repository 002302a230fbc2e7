#include "platform/i18n/Converter.hpp"

#include "platform/i18n/Utf8.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <stdexcept>

namespace fl::i18n {

namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Longer texts than this are decoded into memory of their own, so that small stacks suffice.
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

// Calls fill(room) with room for `length` units and makes the text of as many as it returns.
// The string is constructed once, with its exact size.
template <class Fill>
std::u16string makeText(std::size_t length, Fill fill) {
    if (length <= kStackUnits) {
        std::array<char16_t, kStackUnits> room;
        return {room.data(), fill(room.data())};
    }
    const auto room = std::make_unique_for_overwrite<char16_t[]>(length);
    return {room.get(), fill(room.get())};
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

// Widens `Count` bytes, a multiple of eight, when they are all ASCII, and tells whether they are.
// Blocks of a known size let the compiler work on many bytes at once.
template <std::size_t Count>
bool widenAsciiBlock(const char* bytes, char16_t* out) noexcept {
    std::array<std::uint64_t, Count / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), bytes, Count);
    std::uint64_t allBits = 0;
    for (const std::uint64_t word : words)
        allBits |= word;
    if ((allBits & 0x8080808080808080) != 0)
        return false;
    std::transform(bytes, bytes + Count, out, widen);
    return true;
}

// Widens the ASCII bytes that the text starts with and returns how many there are: most text is
// ASCII or has runs of it.
std::size_t widenAsciiStart(std::string_view text, char16_t* out) noexcept {
    const char* const bytes = text.data();
    const std::size_t length = text.size();
    std::size_t done = 0;
    // Words of other scripts are set apart by single spaces, for which no large block is worth a
    // try.
    if (length >= 8 && widenAsciiBlock<8>(bytes, out)) {
        for (done = 8; length - done >= 32 && widenAsciiBlock<32>(bytes + done, out + done);)
            done += 32;
        while (length - done >= 8 && widenAsciiBlock<8>(bytes + done, out + done))
            done += 8;
        // The rest of a text that ends soon is the end of its last block.
        if (length - done < 8 && widenAsciiBlock<8>(bytes + length - 8, out + length - 8))
            return length;
    }
    for (; done < length && isAscii(bytes[done]); ++done)
        out[done] = widen(bytes[done]);
    return done;
}

// UTF-16 never needs more units than UTF-8 has bytes, replacements included.
std::size_t decode(std::string_view text, char16_t* const begin, bool replaceIllFormed) {
    char16_t* out = begin;
    while (!text.empty()) {
        if (isAscii(text.front())) {
            const std::size_t length = widenAsciiStart(text, out);
            out += length;
            text.remove_prefix(length);
            continue;
        }
        const DecodedSequence sequence = decodeUtf8(text);
        if (!sequence.isWellFormed && !replaceIllFormed)
            throw std::range_error("ill-formed UTF-8");
        out = appendUtf16(out, sequence.codePoint);
        text.remove_prefix(sequence.length);
    }
    return static_cast<std::size_t>(out - begin);
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

// One step through UTF-16: a unit, or the two of a pair.
struct Utf16Step {
    char32_t codePoint;
    std::size_t length;
    bool isWellFormed;
};

Utf16Step decodeUtf16(std::u16string_view text) noexcept {
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

codecvt_string_to_ustring::codecvt_string_to_ustring(std::string_view encoding,
                                                     bool replaceIllFormed)
    : replaceIllFormed_(replaceIllFormed) {
    if (encoding != "utf8" && encoding != "utf-8")
        throw std::invalid_argument("no converter for the encoding " + std::string(encoding));
}

std::u16string codecvt_string_to_ustring::convert(const char* text, std::size_t length) const {
    return makeText(length, [&](char16_t* room) {
        return decode({text, length}, room, replaceIllFormed_);
    });
}

std::u16string codecvt_ascii_to_ustring::convert(const char* text, std::size_t length) const {
    const std::span bytes(reinterpret_cast<const unsigned char*>(text), length);
    if (strict_ && std::ranges::any_of(bytes, [](unsigned char byte) { return byte > 0x7F; }))
        throw std::range_error("a byte above 0x7F where ASCII was expected");
    return {bytes.begin(), bytes.end()};
}

void append_ascii(std::u16string& text, std::string_view bytes) {
    const std::size_t length = text.size();
    text.resize(length + bytes.size());
    std::ranges::transform(bytes, text.data() + length, widen);
}

std::string to_string(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const Utf16Step step = decodeUtf16(text);
        appendUtf8(out, step.codePoint);
        text.remove_prefix(step.length);
    }
    return out;
}

std::u16string to_ustring(std::string_view text) {
    return makeText(text.size(),
                    [&](char16_t* room) { return decode(text, room, /*replaceIllFormed=*/true); });
}

bool is_well_formed(std::u16string_view text) noexcept {
    while (!text.empty()) {
        const Utf16Step step = decodeUtf16(text);
        if (!step.isWellFormed)
            return false;
        text.remove_prefix(step.length);
    }
    return true;
}

bool is_well_formed(std::string_view text) noexcept {
    while (!text.empty()) {
        const DecodedSequence sequence = decodeUtf8(text);
        if (!sequence.isWellFormed)
            return false;
        text.remove_prefix(sequence.length);
    }
    return true;
}

} // namespace fl::i18n
