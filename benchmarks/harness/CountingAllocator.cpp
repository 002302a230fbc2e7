// Replaces malloc and its relatives, and with them every new and delete, in the whole process.
// Bytes are counted as the C library hands them out.

#include "benchmarks/harness/Meter.hpp"

#include <malloc.h>

#include <algorithm>
#include <cerrno>

// The C library's own functions, under the names that it provides for replacements.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

using reference::docparser::benchmarks::allocationCounts;

void* countIn(void* block) {
    allocationCounts.liveBytes += malloc_usable_size(block);
    allocationCounts.peakBytes = std::max(allocationCounts.peakBytes, allocationCounts.liveBytes);
    ++allocationCounts.allocations;
    return block;
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
    allocationCounts.liveBytes -= malloc_usable_size(block);
    return countIn(__libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return countIn(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}

void free(void* block) noexcept {
    allocationCounts.liveBytes -= malloc_usable_size(block);
    __libc_free(block);
}

} // extern "C"
