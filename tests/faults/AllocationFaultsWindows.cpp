#include "tests/faults/AllocationFaults.hpp"

#include <cstdlib>
#include <new>

namespace docparser_tests {

namespace {

constinit thread_local CallSchedule schedule;
constinit thread_local bool isArmed = false;

void* allocate(std::size_t size) noexcept {
    if (isArmed && schedule.nextFails())
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

void* allocateOrThrow(std::size_t size) {
    if (void* memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

AllocationFaults::AllocationFaults(std::size_t first, Repetition repetition) noexcept {
    schedule = CallSchedule(first, repetition);
    isArmed = true;
}

AllocationFaults::~AllocationFaults() {
    isArmed = false;
}

std::size_t AllocationFaults::failures() const noexcept {
    return schedule.failures();
}

std::size_t AllocationFaults::calls() noexcept {
    return schedule.calls();
}

// DLLs return memory that this program took, and the other way round: only the run on Linux counts.
std::size_t liveAllocations(Allocator) noexcept {
    return 0;
}

void forgetLiveAllocations() noexcept {}

} // namespace docparser_tests

using docparser_tests::allocate;
using docparser_tests::allocateOrThrow;

void* operator new(std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
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
