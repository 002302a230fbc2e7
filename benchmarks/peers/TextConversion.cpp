#include "benchmarks/peers/TextConversion.hpp"

#include "platform/i18n/Converter.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace reference::docparser::benchmarks {

namespace {

constexpr std::size_t kStackUnits = 1024;
constexpr std::uint64_t kHighBits = 0x8080808080808080U;

char16_t* widen(const char* bytes, std::size_t length, char16_t* out) noexcept {
    for (std::size_t i = 0; i < length; ++i)
        out[i] = static_cast<unsigned char>(bytes[i]);
    return out + length;
}

bool isTrail(unsigned char byte) noexcept {
    return (byte & 0xC0) == 0x80;
}

// Decodes one sequence beyond ASCII; null when it is not well-formed.
const char* decodeSequence(const char* in, const char* end, char16_t*& out) noexcept {
    const auto byteAt = [in](std::size_t i) { return static_cast<unsigned char>(in[i]); };
    const unsigned char lead = byteAt(0);
    const auto left = end - in;
    if (lead >= 0xC2 && lead <= 0xDF && left >= 2 && isTrail(byteAt(1))) {
        *out++ = static_cast<char16_t>((lead & 0x1F) << 6 | (byteAt(1) & 0x3F));
        return in + 2;
    }
    if ((lead & 0xF0) == 0xE0 && left >= 3 && isTrail(byteAt(1)) && isTrail(byteAt(2))) {
        const auto unit = static_cast<char16_t>((lead & 0x0F) << 12 | (byteAt(1) & 0x3F) << 6 |
                                                (byteAt(2) & 0x3F));
        const bool isSurrogate = unit >= 0xD800 && unit <= 0xDFFF;
        *out++ = unit;
        return unit < 0x800 || isSurrogate ? nullptr : in + 3;
    }
    // Four bytes are rare enough to go the long way.
    return nullptr;
}

// The end of the decoded text; null when the library's decoder has to do it.
char16_t* decode(const char* in, const char* end, char16_t* out) noexcept {
    while (in != end) {
        std::uint64_t block = 0;
        if (end - in >= 8 && (std::memcpy(&block, in, 8), (block & kHighBits) == 0)) {
            out = widen(in, 8, out);
            in += 8;
        } else if (static_cast<unsigned char>(*in) < 0x80) {
            *out++ = static_cast<unsigned char>(*in++);
        } else if (in = decodeSequence(in, end, out); !in) {
            return nullptr;
        }
    }
    return out;
}

std::u16string decodeLong(std::string_view text) {
    static const fl::i18n::codecvt_string_to_ustring converter("utf8", /*replaceIllFormed=*/true);
    return converter.convert(text.data(), text.size());
}

std::u16string convertIn(char16_t* room, std::string_view text, StringParsingType type) {
    char16_t* const end = type == StringParsingType::Ascii
                              ? widen(text.data(), text.size(), room)
                              : decode(text.data(), text.data() + text.size(), room);
    return end ? std::u16string(room, end) : decodeLong(text);
}

} // namespace

std::u16string convertText(std::string_view text, StringParsingType type) {
    if (text.size() <= kStackUnits) {
        std::array<char16_t, kStackUnits> room;
        return convertIn(room.data(), text, type);
    }
    const auto room = std::make_unique_for_overwrite<char16_t[]>(text.size());
    return convertIn(room.get(), text, type);
}

} // namespace reference::docparser::benchmarks
