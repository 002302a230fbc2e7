#include "tests/system/memory/AllocationCounter.hpp"

#include "tests/support/ReplacedNew.hpp"

#include <malloc.h>

#include <atomic>
#include <cstdlib>

namespace docparser_tests {

namespace {

constinit std::atomic<std::size_t> live{0};
constinit std::atomic<std::size_t> peak{0};
constinit std::atomic<std::size_t> largeAllocations{0};
constinit std::atomic<std::size_t> firstLarge{0};

} // namespace

std::size_t liveBytes() noexcept {
    return live;
}

AllocationObserver::AllocationObserver() noexcept : liveBefore_(live) {
    peak = liveBefore_;
    largeAllocations = 0;
    firstLarge = 0;
}

std::size_t AllocationObserver::largeCount() const noexcept {
    return largeAllocations;
}

std::size_t AllocationObserver::firstLargeSize() const noexcept {
    return firstLarge;
}

std::size_t AllocationObserver::peakBytes() const noexcept {
    return peak - liveBefore_;
}

void* allocateForNew(std::size_t size) noexcept {
    void* memory = std::malloc(size ? size : 1);
    if (!memory)
        return nullptr;
    const std::size_t now = live += ::malloc_usable_size(memory);
    for (std::size_t before = peak; before < now && !peak.compare_exchange_weak(before, now);) {
    }
    if (size >= kLargeBytes && largeAllocations++ == 0)
        firstLarge = size;
    return memory;
}

void releaseForDelete(void* memory) noexcept {
    if (!memory)
        return;
    live -= ::malloc_usable_size(memory);
    std::free(memory);
}

} // namespace docparser_tests
