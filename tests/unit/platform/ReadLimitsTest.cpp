#include "platform/ReadLimits.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <thread>

namespace platform {

namespace {

class ReadLimitsTest : public testing::Test {
public:
    ~ReadLimitsTest() override { setReadLimits(before_); }

private:
    ReadLimits before_ = readLimits();
};

TEST_F(ReadLimitsTest, HaveDefaultsInOrder) {
    const auto [fileBytes, entryBytes, packageBytes, directoryBytes] = ReadLimits();
    EXPECT_EQ(fileBytes, 1'073'741'824U);
    EXPECT_EQ(entryBytes, 1'073'741'824U);
    EXPECT_EQ(packageBytes, 4'294'967'296U);
    EXPECT_EQ(directoryBytes, 67'108'864U);
    EXPECT_EQ(readLimits(), ReadLimits());
}

TEST_F(ReadLimitsTest, ReturnEachLimitAsSetLast) {
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
    for (const ReadLimits& limits :
         {ReadLimits{1, 2, 3, 4}, ReadLimits{0, 0, 0, 0},
          ReadLimits{kMost, kMost - 1, kMost - 2, kMost - 3}, ReadLimits{}}) {
        setReadLimits(limits);
        EXPECT_EQ(readLimits(), limits) << limits.fileBytes;
    }
}

TEST_F(ReadLimitsTest, AreEqualIfEachLimitIs) {
    const ReadLimits limits{1, 2, 3, 4};
    EXPECT_EQ(limits, (ReadLimits{1, 2, 3, 4}));
    for (const ReadLimits& other : {ReadLimits{9, 2, 3, 4}, ReadLimits{1, 9, 3, 4},
                                    ReadLimits{1, 2, 9, 4}, ReadLimits{1, 2, 3, 9}})
        EXPECT_FALSE(limits == other) << other.fileBytes << ' ' << other.entryBytes;
}

TEST_F(ReadLimitsTest, CanBeSetWhileOtherThreadsReadThem) {
    const auto setAndRead = [](std::uint64_t first) {
        for (std::uint64_t i = first; i < first + 1000; ++i) {
            setReadLimits({i, i, i, i});
            EXPECT_LT(readLimits().directoryBytes, 11'000U);
        }
    };
    setReadLimits({0, 0, 0, 0});
    std::thread other(setAndRead, 10'000);
    setAndRead(0);
    other.join();
}

} // namespace

} // namespace platform
