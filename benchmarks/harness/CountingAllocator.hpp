#pragma once

#include <cstddef>

namespace reference::docparser::benchmarks {

// Linked into a program, the counting allocator takes the place of malloc, free and their kin, and
// so of every new and delete, that of shared libraries included. Bytes are counted as they are
// asked for: how an allocator rounds them differs from system to system. A realloc always moves.
// For one thread.

struct AllocationCounts {
    std::size_t liveBytes;
    std::size_t peakBytes;   ///< most live bytes since resetPeak()
    std::size_t allocations; ///< since the program began
};

AllocationCounts allocationCounts() noexcept;

/// Makes what is live now the peak.
void resetPeak() noexcept;

} // namespace reference::docparser::benchmarks
