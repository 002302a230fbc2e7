#pragma once

#include "tests/faults/CallSchedule.hpp"

#include <cstddef>

namespace docparser_tests {

/// Whether allocations fail in shared libraries too, or only in the code of the program.
#ifdef _WIN32
inline constexpr bool kReachesLibraries = false;
#else
inline constexpr bool kReachesLibraries = true;
#endif

/// Makes allocations of the calling thread fail during its lifetime and counts all of them. Other
/// threads are not affected.
///
/// On Linux: malloc, calloc, realloc and operator new, also if the C library calls them. On
/// Windows: operator new in the code that is linked into the program, not in DLLs. A program that
/// links this has those functions replaced. One object a thread at a time.
class AllocationFaults {
public:
    AllocationFaults(std::size_t first, Repetition repetition) noexcept;
    ~AllocationFaults();
    AllocationFaults(const AllocationFaults&) = delete;
    AllocationFaults& operator=(const AllocationFaults&) = delete;

    std::size_t failures() const noexcept;

    /// Returns the number of requested allocations, including those that failed.
    static std::size_t calls() noexcept;
};

/// The code that requested memory. libzip is counted separately because it leaks when an allocation
/// fails, which its callers cannot prevent.
enum class Allocator { Libzip, AnyOther };

/// Of the allocations that were made under any AllocationFaults, how many have not been returned,
/// by whichever thread. Not counted on Windows, where the result is 0.
std::size_t liveAllocations(Allocator allocator) noexcept;

/// Resets the count of live allocations, so that each leak is counted once.
void forgetLiveAllocations() noexcept;

} // namespace docparser_tests
