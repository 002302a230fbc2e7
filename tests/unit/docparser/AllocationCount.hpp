#pragma once

#include <cstddef>

namespace docparser_tests {

/// Counts what the current thread has allocated with operator new since the object was created.
///
/// The test program replaces operator new, so allocations in shared libraries are counted as well.
/// Memory that has been freed stays counted.
class AllocationCount {
public:
    AllocationCount() noexcept;

    std::size_t requests() const noexcept; ///< number of allocations
    std::size_t bytes() const noexcept;    ///< size of all allocations together
    /// Size of the largest allocation. Valid only for the object that was created last.
    std::size_t largestBytes() const noexcept;

private:
    std::size_t requestsBefore_;
    std::size_t bytesBefore_;
};

} // namespace docparser_tests
