#pragma once

#include <cstddef>

namespace docparser_tests {

/// A program that links this file has operator new and operator delete replaced, also in shared
/// libraries, so that it can count allocations.
///
/// An allocation of at least this size is large. Only the long texts of a test reach it.
inline constexpr std::size_t kLargeBytes = std::size_t{1} << 20;

/// Returns the number of bytes that are allocated and not yet released.
std::size_t liveBytes() noexcept;

/// Observes the allocations of all threads since its construction. Only one may exist at a time.
class AllocationObserver {
public:
    AllocationObserver() noexcept;

    /// Returns the number of large allocations.
    std::size_t largeCount() const noexcept;

    /// Returns the requested size of the first large allocation, or 0 if there was none.
    std::size_t firstLargeSize() const noexcept;

    /// Returns the largest increase of the live bytes.
    std::size_t peakBytes() const noexcept;

private:
    std::size_t liveBefore_;
};

} // namespace docparser_tests
