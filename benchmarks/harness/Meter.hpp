#pragma once

#include <cstddef>
#include <ctime>
#include <utility>

namespace reference::docparser::benchmarks {

struct AllocationCounts {
    std::size_t liveBytes = 0;
    std::size_t peakBytes = 0; ///< the most live bytes since the measured call began
    std::size_t allocations = 0;
};

/// Maintained by CountingAllocator.cpp; all zero in a program without it. For one thread.
inline AllocationCounts allocationCounts;

/// Adds up what calls cost. For one thread.
struct Meter {
    double seconds = 0;        ///< processor time of the thread, the system's included
    std::size_t textBytes = 0; ///< JSON text that the measured calls processed; added by the caller
    std::size_t peakBytes = 0;
    std::size_t keptBytes = 0;
    std::size_t allocations = 0;

    /// Measures call(makeInput()). Making the input and destroying the result take no time that is
    /// counted; the input counts as memory, because the caller holds it.
    template <class MakeInput, class Call>
    void measure(MakeInput makeInput, Call call) {
        const AllocationCounts before = allocationCounts;
        auto input = makeInput();
        allocationCounts.peakBytes = allocationCounts.liveBytes;
        const std::size_t allocationsBefore = allocationCounts.allocations;
        const double started = threadSeconds();
        [[maybe_unused]] const auto result = call(std::move(input));
        seconds += threadSeconds() - started;
        allocations += allocationCounts.allocations - allocationsBefore;
        peakBytes += allocationCounts.peakBytes - before.liveBytes;
        keptBytes += allocationCounts.liveBytes - before.liveBytes;
    }

private:
    static double threadSeconds() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }
};

} // namespace reference::docparser::benchmarks
