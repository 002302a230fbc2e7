// What memory the rows take, under a counting allocator: docparser_memory FOLDER prints a line a
// row and part, as JSON: "row", "peak" and "kept" in bytes per byte of JSON text, and "allocations"
// per KiB of it. Peaks are means over a row's calls, weighted by their texts.

#include "benchmarks/harness/CountingAllocator.hpp"
#include "benchmarks/harness/Meter.hpp"
#include "benchmarks/rows/Row.hpp"

#include <cstdio>
#include <exception>

namespace {

using namespace reference::docparser::benchmarks;

class MemoryMeter final : public Meter {
public:
    /// Nothing for a row whose root has no input for it.
    void print(const Row& row) const {
        if (inputBytes_ == 0)
            return;
        const auto bytes = static_cast<double>(inputBytes_);
        std::printf("{\"row\": \"%s:%s\", \"peak\": %.3f, \"kept\": %.3f, \"allocations\": %.3f}\n",
                    row.group.c_str(), row.name.c_str(), static_cast<double>(peakBytes_) / bytes,
                    static_cast<double>(keptBytes_) / bytes,
                    static_cast<double>(allocations_) * 1024 / bytes);
    }

private:
    void prepare() override { before_ = allocationCounts(); }
    void start() override {
        resetPeak();
        started_ = allocationCounts();
    }
    void stop() override { stopped_ = allocationCounts(); }
    void account(std::size_t inputBytes) override {
        inputBytes_ += inputBytes;
        peakBytes_ += stopped_.peakBytes - before_.liveBytes;
        keptBytes_ += stopped_.liveBytes - before_.liveBytes;
        allocations_ += stopped_.allocations - started_.allocations;
    }

    AllocationCounts before_{};
    AllocationCounts started_{};
    AllocationCounts stopped_{};
    std::size_t inputBytes_ = 0;
    std::size_t peakBytes_ = 0;
    std::size_t keptBytes_ = 0;
    std::size_t allocations_ = 0;
};

class DiscardingMeter final : public Meter {
    void start() override {}
    void stop() override {}
    void account(std::size_t) override {}
};

void measure(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        // What a process allocates once and keeps is no cost of a call.
        DiscardingMeter warmUp;
        row.pass(warmUp);
        MemoryMeter meter;
        row.pass(meter);
        meter.print(row);
    }
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc != 2) {
            std::fputs("usage: docparser_memory FOLDER\n", stderr);
            return 2;
        }
        const auto corpus = std::make_shared<const Corpus>(argv[1]);
        measure(makeRows(corpus));
        measure(makePartRows(corpus));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_memory: %s\n", error.what());
        return 1;
    }
}
