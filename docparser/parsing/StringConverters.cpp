#include "docparser/parsing/StringConverters.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace reference::docparser {

namespace {

// A word with the same value in each of its eight bytes.
constexpr std::uint64_t repeat(std::uint64_t byte) {
    return byte * 0x0101010101010101;
}

// Whether all eight bytes of a word are in 1..126. Adding 1 to a byte sets its bit 7 if the byte is
// 127; adding 127 sets it unless the byte is 0. Only a byte that already has bit 7 can carry into
// the next one, and the word itself shows such a byte.
constexpr bool isPlainWord(std::uint64_t word) {
    const std::uint64_t isTooLarge = word | (word + repeat(1));
    const std::uint64_t isNotZero = word + repeat(127);
    return ((isTooLarge | ~isNotZero) & repeat(0x80)) == 0;
}

constexpr bool isPlainByte(char byte) {
    return byte >= 1 && byte <= 126;
}

// Whether all bytes are in 1..126. Stops at the first word or byte that is not.
bool isPlain(std::string_view bytes) noexcept {
    for (std::uint64_t word; bytes.size() >= sizeof word; bytes.remove_prefix(sizeof word)) {
        std::memcpy(&word, bytes.data(), sizeof word);
        if (!isPlainWord(word))
            return false;
    }
    return std::ranges::all_of(bytes, isPlainByte);
}

} // namespace

std::u16string StringConverters::convert(std::string_view bytes, StringParsingType type) const {
    const bool isWidened = type == StringParsingType::Ascii || isPlain(bytes);
    return (isWidened ? ascii_ : utf8_).convert(bytes.data(), bytes.size());
}

} // namespace reference::docparser
