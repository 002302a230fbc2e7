#pragma once

#include "tests/faults/CallSchedule.hpp"

#include <cstddef>

namespace docparser_tests {

/// Whether faults reach shared libraries, or only code linked into the program.
#ifdef _WIN32
inline constexpr bool kReachesLibraries = false;
#else
inline constexpr bool kReachesLibraries = true;
#endif

/// Counts the allocations of the calling thread during its life, and makes some of them fail. Other
/// threads are not affected. A thread may have only one object at a time.
///
/// A program that links this file replaces these functions: on Linux malloc, calloc, realloc and
/// operator new, including calls from shared libraries; on Windows operator new in the code that is
/// linked into the program, but not in DLLs.
class AllocationFaults {
public:
    AllocationFaults(std::size_t first, Repetition repetition) noexcept;
    ~AllocationFaults();
    AllocationFaults(const AllocationFaults&) = delete;
    AllocationFaults& operator=(const AllocationFaults&) = delete;

    std::size_t failures() const noexcept;

    /// The number of allocations requested under the last object, including those that failed.
    static std::size_t calls() noexcept;
};

/// The code that requested memory. libzip is counted separately because it leaks when an allocation
/// fails.
enum class Allocator { Libzip, AnyOther };

/// The number of allocations made under any AllocationFaults that no thread has freed. Always 0 on
/// Windows, where they are not counted.
std::size_t liveAllocations(Allocator allocator) noexcept;

/// Resets the count of live allocations, so that a leak is reported only once.
void forgetLiveAllocations() noexcept;

} // namespace docparser_tests
