#include "tests/unit/docparser/AllocationCount.hpp"

#include "tests/support/ReplacedNew.hpp"

#include <algorithm>
#include <cstdlib>

namespace {

struct Tallies {
    std::size_t requests = 0;
    std::size_t bytes = 0;
    std::size_t largestBytes = 0;
};

thread_local Tallies tallies;

} // namespace

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

void* allocateForNew(std::size_t size) noexcept {
    ++tallies.requests;
    tallies.bytes += size;
    tallies.largestBytes = std::max(tallies.largestBytes, size);
    return std::malloc(std::max<std::size_t>(size, 1));
}

void releaseForDelete(void* memory) noexcept {
    std::free(memory);
}

} // namespace docparser_tests
