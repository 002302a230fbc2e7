#pragma once

#include <cstdint>
#include <memory>
#include <span>

struct libdeflate_decompressor;

namespace platform::zip {

/// Inflates entries whose bytes are all in memory, in one step each; faster than libzip, which
/// inflates a stream. One thread at a time.
class Inflater {
public:
    /// Inflates a deflate stream that has no header.
    /// \param packed    the stream, without any bytes after it
    /// \param content   receives the content; its size is that of the whole content
    /// \param checksum  the CRC-32 of the content
    /// \returns  whether all three agree; if not, `content` has unspecified bytes
    bool inflate(std::span<const char> packed, std::span<char> content, std::uint32_t checksum);

private:
    struct Free {
        void operator()(libdeflate_decompressor* decompressor) const noexcept;
    };

    std::unique_ptr<libdeflate_decompressor, Free> decompressor_; // null until it is needed
};

} // namespace platform::zip
