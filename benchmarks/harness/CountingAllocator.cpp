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

// The parameters have the names that the C library gives them.
extern "C" {

void* malloc(std::size_t size) noexcept {
    return countIn(__libc_malloc(size));
}

void* calloc(std::size_t nmemb, std::size_t size) noexcept {
    return countIn(__libc_calloc(nmemb, size));
}

void* realloc(void* ptr, std::size_t size) noexcept {
    allocationCounts.liveBytes -= malloc_usable_size(ptr);
    return countIn(__libc_realloc(ptr, size));
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return countIn(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

int posix_memalign(void** memptr, std::size_t alignment, std::size_t size) noexcept {
    *memptr = memalign(alignment, size);
    return *memptr ? 0 : ENOMEM;
}

void free(void* ptr) noexcept {
    allocationCounts.liveBytes -= malloc_usable_size(ptr);
    __libc_free(ptr);
}

} // extern "C"
