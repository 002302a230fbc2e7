#pragma once

#include <cstddef>

namespace docparser_tests {

/// Counts the allocations of the current thread by operator new since the object was created.
///
/// Includes allocations in shared libraries, because the test program replaces operator new.
/// Freeing memory does not reduce the counts.
class AllocationCount {
public:
    AllocationCount() noexcept;

    std::size_t requests() const noexcept; ///< number of allocations
    std::size_t bytes() const noexcept;    ///< total size of the allocations
    /// Size of the largest allocation. Valid only for the object that was created last.
    std::size_t largestBytes() const noexcept;

private:
    std::size_t requestsBefore_;
    std::size_t bytesBefore_;
};

} // namespace docparser_tests
