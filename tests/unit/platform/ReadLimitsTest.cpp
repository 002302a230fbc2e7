#include "platform/ReadLimits.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <thread>

namespace platform {

namespace {

class ReadLimitsTest : public testing::Test {
protected:
    ~ReadLimitsTest() override { setReadLimits(before_); }

private:
    ReadLimits before_ = readLimits();
};

TEST_F(ReadLimitsTest, DefaultToOneGibibytePerFileAndEntryAndFourPerPackage) {
    EXPECT_EQ(readLimits().fileBytes, 1'073'741'824u);
    EXPECT_EQ(readLimits().entryBytes, 1'073'741'824u);
    EXPECT_EQ(readLimits().packageBytes, 4'294'967'296u);
    EXPECT_EQ(readLimits(), ReadLimits());
}

TEST_F(ReadLimitsTest, AreIndependentAndKeepTheLastValue) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    for (const ReadLimits& limits : {ReadLimits{1, 2, 3}, ReadLimits{0, 0, 0},
                                     ReadLimits{most, most - 1, most - 2}, ReadLimits{}}) {
        setReadLimits(limits);
        EXPECT_EQ(readLimits(), limits) << limits.fileBytes;
    }
}

TEST_F(ReadLimitsTest, AreEqualIfEachLimitIsEqual) {
    const ReadLimits limits{1, 2, 3};
    EXPECT_EQ(limits, (ReadLimits{1, 2, 3}));
    for (const ReadLimits& other : {ReadLimits{9, 2, 3}, ReadLimits{1, 9, 3}, ReadLimits{1, 2, 9}})
        EXPECT_FALSE(limits == other) << other.fileBytes << ' ' << other.entryBytes;
}

TEST_F(ReadLimitsTest, CanBeSetWhileOtherThreadsRead) {
    const auto setAndRead = [](std::uint64_t first) {
        for (std::uint64_t i = first; i < first + 1000; ++i) {
            setReadLimits({i, i, i});
            EXPECT_LT(readLimits().fileBytes, 11'000u);
        }
    };
    setReadLimits({0, 0, 0});
    std::thread other(setAndRead, 10'000);
    setAndRead(0);
    other.join();
}

} // namespace

} // namespace platform
