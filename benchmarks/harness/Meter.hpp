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
class Meter {
public:
    /// Measures call(makeInput()). Making the input and destroying the result take no time that is
    /// counted; the input counts as memory, because the caller holds it.
    template <class MakeInput, class Call>
    void measure(MakeInput makeInput, Call call) {
        const AllocationCounts before = allocationCounts;
        auto input = makeInput();
        allocationCounts.peakBytes = allocationCounts.liveBytes;
        const std::size_t allocations = allocationCounts.allocations;
        const double started = threadSeconds();
        [[maybe_unused]] const auto result = call(std::move(input));
        seconds_ += threadSeconds() - started;
        allocations_ += allocationCounts.allocations - allocations;
        peakBytes_ += allocationCounts.peakBytes - before.liveBytes;
        keptBytes_ += allocationCounts.liveBytes - before.liveBytes;
    }

    /// Adds JSON text that the measured calls processed.
    void addText(std::size_t bytes) { textBytes_ += bytes; }

    /// Processor time of the thread, the system's included.
    double seconds() const { return seconds_; }
    std::size_t textBytes() const { return textBytes_; }
    double peakBytesPerByte() const { return perByte(peakBytes_); }
    double keptBytesPerByte() const { return perByte(keptBytes_); }
    double allocationsPerKiB() const { return perByte(allocations_) * 1024; }

private:
    static double threadSeconds() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    double perByte(std::size_t count) const {
        return textBytes_ == 0 ? 0 : static_cast<double>(count) / static_cast<double>(textBytes_);
    }

    double seconds_ = 0;
    std::size_t textBytes_ = 0;
    std::size_t peakBytes_ = 0;
    std::size_t keptBytes_ = 0;
    std::size_t allocations_ = 0;
};

} // namespace reference::docparser::benchmarks
