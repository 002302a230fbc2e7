#include "platform/LineCounter.hpp"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace {

using platform::LineAndColumn;
using platform::LineCounter;

TEST(LineCounter, CountsLinesAndCodePoints) {
    const std::string_view text = "aé\n𝑦b\r\n\n";
    const std::pair<std::size_t, LineAndColumn> expected[] = {
        {0, {1, 1}}, {1, {1, 2}},  {3, {1, 3}},  {4, {2, 1}}, {8, {2, 2}},
        {9, {2, 3}}, {10, {2, 4}}, {11, {3, 1}}, {12, {4, 1}}};
    LineCounter counter(text);
    for (const auto& [offset, position] : expected) {
        EXPECT_EQ(counter.positionOf(offset), position) << offset;
        EXPECT_EQ(LineCounter(text).positionOf(offset), position) << offset;
    }
}

TEST(LineCounter, ReturnsThePositionOfTheCodePointThatAByteBelongsTo) {
    for (const std::size_t offset : {1U, 2U, 3U, 4U})
        EXPECT_EQ(LineCounter("a𝑦b").positionOf(offset), (LineAndColumn{1, 2})) << offset;
    EXPECT_EQ(LineCounter("a𝑦b").positionOf(5), (LineAndColumn{1, 3}));
}

TEST(LineCounter, CountsUpToTheEndOfTheText) {
    EXPECT_EQ(LineCounter("").positionOf(0), (LineAndColumn{1, 1}));
    EXPECT_EQ(LineCounter("ab").positionOf(100), (LineAndColumn{1, 3}));
    EXPECT_EQ(LineCounter("ab\n").positionOf(100), (LineAndColumn{2, 1}));
}

} // namespace
