#pragma once

#include <cstdint>
#include <memory>
#include <span>

struct libdeflate_decompressor;

namespace platform::zip {

/// Inflates entries that are completely in memory, each in one step. This is faster than libzip,
/// which inflates a stream. One thread at a time.
class Inflater {
public:
    /// Inflates a deflate stream that has no header.
    /// \param packed    the stream, without any bytes after it
    /// \param content   receives the content; its size is the expected size of the whole content
    /// \param checksum  the expected CRC-32 of the content
    /// \returns  whether the content has this size and checksum; if not, its bytes are unspecified
    bool inflate(std::span<const char> packed, std::span<char> content, std::uint32_t checksum);

private:
    struct Free {
        void operator()(libdeflate_decompressor* decompressor) const noexcept;
    };

    std::unique_ptr<libdeflate_decompressor, Free> decompressor_; // null until it is needed
};

} // namespace platform::zip
