#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>

namespace platform {

/// Makes a string whose size is known only once it has been written. The string itself is
/// constructed once, with its exact size.
/// \param capacity  the largest size that the string can have
/// \param write     called once with a buffer of `capacity` units; returns how many it wrote
template <class Write>
std::u16string makeUtf16String(std::size_t capacity, Write write) {
    // Longer strings are written to the heap, so that threads with small stacks can convert them.
    constexpr std::size_t kStackUnits = 1024;
    if (capacity <= kStackUnits) {
        std::array<char16_t, kStackUnits> buffer;
        return {buffer.data(), write(buffer.data())};
    }
    const auto buffer = std::make_unique_for_overwrite<char16_t[]>(capacity);
    return {buffer.get(), write(buffer.get())};
}

} // namespace platform
