#include "tools/refdoc/session/Parallel.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace refdoc {
namespace {

TEST(ParallelTest, CallsWithEachNumberOnce) {
    for (const std::size_t count : {0U, 1U, 15U, 16U, 1000U}) {
        std::vector<std::atomic<int>> calls(count);
        forEachInParallel(count, [&](std::size_t number) { ++calls[number]; });
        for (std::size_t number = 0; number < count; ++number)
            EXPECT_EQ(calls[number], 1) << number << " of " << count;
    }
}

TEST(ParallelTest, UsesNoMoreThreadsThanAllowed) {
    for (const std::size_t mostThreads : {0U, 1U, 2U}) {
        std::mutex mutex; // guards threads
        std::set<std::thread::id> threads;
        std::atomic<std::size_t> calls = 0;
        forEachInParallel(100, mostThreads, [&](std::size_t) {
            ++calls;
            const std::lock_guard lock(mutex);
            threads.insert(std::this_thread::get_id());
        });
        EXPECT_EQ(calls, 100U);
        EXPECT_LE(threads.size(), std::max<std::size_t>(mostThreads, 1));
    }
}

TEST(ParallelTest, ThrowsFailureOfLowestNumber) {
    for (int run = 0; run < 100; ++run) {
        try {
            forEachInParallel(1000, [](std::size_t number) {
                if (number >= 40)
                    throw std::runtime_error(std::to_string(number));
            });
            FAIL() << "no exception";
        } catch (const std::runtime_error& failure) {
            EXPECT_STREQ(failure.what(), "40");
        }
    }
}

TEST(ParallelTest, BeginsNoCallAfterFailure) {
    std::atomic<std::size_t> calls = 0;
    const auto call = [&](std::size_t) {
        ++calls;
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(forEachInParallel(100'000, call), std::runtime_error);
    // Each thread fails with its first call.
    EXPECT_LT(calls, 10'000U);
}

} // namespace
} // namespace refdoc
