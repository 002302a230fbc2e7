#include "benchmarks/harness/CountingAllocator.hpp"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

// The C library's own functions, under the names that it keeps for allocators like this one.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

std::size_t liveBytes = 0;
std::size_t peakBytes = 0;
std::size_t allocations = 0;

// Stands right in front of each block that a caller gets.
struct alignas(std::max_align_t) Header {
    std::size_t size;   // that the caller asked for
    std::size_t offset; // of the caller's block in what the C library gave
};

Header* headerOf(void* block) noexcept {
    return static_cast<Header*>(block) - 1;
}

void* countIn(void* given, std::size_t offset, std::size_t size) noexcept {
    if (!given)
        return nullptr;
    liveBytes += size;
    peakBytes = std::max(peakBytes, liveBytes);
    ++allocations;
    void* const block = static_cast<std::byte*>(given) + offset;
    *headerOf(block) = {size, offset};
    return block;
}

bool isTooLarge(std::size_t size, std::size_t offset) noexcept {
    return size > std::numeric_limits<std::size_t>::max() - offset;
}

} // namespace

extern "C" {

void* malloc(std::size_t size) noexcept {
    if (isTooLarge(size, sizeof(Header)))
        return nullptr;
    return countIn(__libc_malloc(sizeof(Header) + size), sizeof(Header), size);
}

void free(void* block) noexcept {
    if (!block)
        return;
    const Header header = *headerOf(block);
    liveBytes -= header.size;
    __libc_free(static_cast<std::byte*>(block) - header.offset);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    if (size != 0 && count > std::numeric_limits<std::size_t>::max() / size)
        return nullptr;
    void* const block = malloc(count * size);
    return block ? std::memset(block, 0, count * size) : nullptr;
}

void* realloc(void* block, std::size_t size) noexcept {
    void* const moved = malloc(size);
    if (moved && block) {
        std::memcpy(moved, block, std::min(size, headerOf(block)->size));
        free(block);
    }
    return moved;
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    const std::size_t offset = std::max(alignment, sizeof(Header));
    if (isTooLarge(size, offset))
        return nullptr;
    return countIn(__libc_memalign(alignment, offset + size), offset, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    void* const made = memalign(alignment, size);
    if (!made)
        return ENOMEM;
    *block = made;
    return 0;
}

std::size_t malloc_usable_size(void* block) noexcept {
    return block ? headerOf(block)->size : 0;
}

} // extern "C"

namespace reference::docparser::benchmarks {

AllocationCounts allocationCounts() noexcept {
    return {liveBytes, peakBytes, allocations};
}

void resetPeak() noexcept {
    peakBytes = liveBytes;
}

} // namespace reference::docparser::benchmarks
