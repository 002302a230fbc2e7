#include "tests/faults/AllocationFaults.hpp"
#include "tests/support/ReplacedNew.hpp"

#include <cstdlib>

namespace docparser_tests {

namespace {

constinit thread_local CallSchedule schedule;
constinit thread_local bool isArmed = false;

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

// DLLs free memory that the program allocated, and vice versa, so only the Linux build counts
// allocations.
std::size_t liveAllocations(Allocator) noexcept {
    return 0;
}

void forgetLiveAllocations() noexcept {}

void* allocateForNew(std::size_t size) noexcept {
    if (isArmed && schedule.nextFails())
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

void releaseForDelete(void* memory) noexcept {
    std::free(memory);
}

} // namespace docparser_tests
