#include "platform/package/StreamHelper.hpp"

#include "platform/package/PackageError.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <ostream>
#include <span>

namespace opc {

namespace {

constexpr std::size_t kChunk = std::size_t{16} << 10;
constexpr std::uint64_t kFirstStep = std::uint64_t{1} << 20;

/// The next size of a full text to which `arrived` more bytes belong. As long as the claim holds it
/// is believed up to four times what has come, which spares copies; after that the text doubles.
std::size_t nextSize(std::size_t size, std::size_t arrived, std::uint64_t claim) {
    std::uint64_t next = std::max<std::uint64_t>(std::uint64_t{size} * 2, kChunk);
    if (claim > size)
        next = std::min(std::uint64_t{size} * 4, claim);
    return std::max(static_cast<std::size_t>(next), size + arrived);
}

/// Grows a full text by the bytes that have arrived and room for more.
void grow(std::string& text, std::span<const char> arrived, std::uint64_t claim) {
    const std::size_t filled = text.size();
    text.resize(nextSize(filled, arrived.size(), claim));
    std::ranges::copy(arrived, text.begin() + static_cast<std::ptrdiff_t>(filled));
}

} // namespace

bool StreamHelper::copyStreamToStream(InputStream& input, std::ostream& output) {
    std::array<char, kChunk> chunk;
    while (const std::size_t count = input.read(chunk.data(), chunk.size())) {
        if (!output.write(chunk.data(), static_cast<std::streamsize>(count)))
            throw PackageError("the content of an entry could not be written");
    }
    return true;
}

std::string StreamHelper::readAll(InputStream& input) {
    const std::uint64_t claim = input.claimedSize();
    std::string text(static_cast<std::size_t>(std::min(claim, kFirstStep)), '\0');
    std::size_t filled = 0;
    std::array<char, kChunk> beyond;
    while (true) {
        // A full text is not grown before there is a byte to put into it: mostly there is none.
        const bool isFull = filled == text.size();
        const std::size_t count = isFull ? input.read(beyond.data(), beyond.size())
                                         : input.read(text.data() + filled, text.size() - filled);
        if (count == 0)
            break;
        if (isFull)
            grow(text, std::span(beyond).first(count), claim);
        filled += count;
    }
    text.resize(filled);
    return text;
}

} // namespace opc
