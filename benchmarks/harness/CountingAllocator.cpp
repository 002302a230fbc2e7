#include "benchmarks/harness/CountingAllocator.hpp"

#include <malloc.h>

#include <algorithm>
#include <cerrno>

// The C library's own functions, under the names that it keeps for allocators like this one.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

std::size_t liveBytes = 0;
std::size_t peakBytes = 0;
std::size_t allocations = 0;

void* countIn(void* block) noexcept {
    if (block) {
        liveBytes += malloc_usable_size(block);
        peakBytes = std::max(peakBytes, liveBytes);
        ++allocations;
    }
    return block;
}

void countOut(void* block) noexcept {
    if (block)
        liveBytes -= malloc_usable_size(block);
}

} // namespace

extern "C" {

void* malloc(std::size_t size) noexcept {
    return countIn(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    return countIn(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
    const std::size_t before = block ? malloc_usable_size(block) : 0;
    void* const moved = __libc_realloc(block, size);
    if (moved || size == 0)
        liveBytes -= before;
    return countIn(moved);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return countIn(__libc_memalign(alignment, size));
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

void free(void* block) noexcept {
    countOut(block);
    __libc_free(block);
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
