#pragma once

#include <cstddef>

namespace docparser_tests {

/// What operator new and operator delete of the whole process do; a program that links this has
/// them replaced, in shared libraries too.
///
/// An allocation counts as large from this size on: large enough that only the texts that a test
/// is about reach it.
inline constexpr std::size_t kLargeBytes = std::size_t{1} << 20;

/// Bytes that are allocated and not yet given back.
std::size_t liveBytes() noexcept;

/// Observes the allocations of all threads from its construction on. One at a time.
class AllocationObserver {
public:
    AllocationObserver() noexcept;

    /// How many large allocations there were.
    std::size_t largeCount() const noexcept;

    /// The size of the first large allocation, as it was asked for; 0 when there was none.
    std::size_t firstLargeSize() const noexcept;

    /// By how much the live bytes have risen at most.
    std::size_t peakBytes() const noexcept;

private:
    std::size_t liveBefore_;
};

} // namespace docparser_tests
