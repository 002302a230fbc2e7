#include "platform/zip/Inflater.hpp"

#include <libdeflate.h>

#include <cstddef>
#include <new>

namespace platform::zip {

void Inflater::Free::operator()(libdeflate_decompressor* decompressor) const noexcept {
    libdeflate_free_decompressor(decompressor);
}

bool Inflater::inflate(std::span<const char> packed, std::span<char> content,
                       std::uint32_t checksum) {
    if (!decompressor_)
        decompressor_.reset(libdeflate_alloc_decompressor());
    if (!decompressor_)
        throw std::bad_alloc();
    std::size_t length = 0;
    // With the null pointer, libdeflate rejects content that does not fill the buffer exactly.
    const libdeflate_result result = libdeflate_deflate_decompress_ex(
        decompressor_.get(), packed.data(), packed.size(), content.data(), content.size(), &length,
        /*actual_out_nbytes_ret=*/nullptr);
    return result == LIBDEFLATE_SUCCESS && length == packed.size() &&
           libdeflate_crc32(0, content.data(), content.size()) == checksum;
}

} // namespace platform::zip
