#include "tests/unit/docparser/AllocationCount.hpp"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

struct Tallies {
    std::size_t requests = 0;
    std::size_t bytes = 0;
    std::size_t largestBytes = 0;
};

thread_local Tallies tallies;

void* allocate(std::size_t bytes) noexcept {
    ++tallies.requests;
    tallies.bytes += bytes;
    tallies.largestBytes = std::max(tallies.largestBytes, bytes);
    return std::malloc(std::max<std::size_t>(bytes, 1));
}

void* allocateOrThrow(std::size_t bytes) {
    if (void* memory = allocate(bytes))
        return memory;
    throw std::bad_alloc();
}

} // namespace

// All forms except the over-aligned ones are replaced, so that each allocation is freed by the
// matching delete.
void* operator new(std::size_t bytes) {
    return allocateOrThrow(bytes);
}
void* operator new[](std::size_t bytes) {
    return allocateOrThrow(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    return allocate(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
    return allocate(bytes);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

namespace docparser_tests {

AllocationCount::AllocationCount() noexcept
    : requestsBefore_(tallies.requests), bytesBefore_(tallies.bytes) {
    tallies.largestBytes = 0;
}

std::size_t AllocationCount::requests() const noexcept {
    return tallies.requests - requestsBefore_;
}

std::size_t AllocationCount::bytes() const noexcept {
    return tallies.bytes - bytesBefore_;
}

std::size_t AllocationCount::largestBytes() const noexcept {
    return tallies.largestBytes;
}

} // namespace docparser_tests
