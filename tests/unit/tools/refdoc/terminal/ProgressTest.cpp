#include "tools/refdoc/terminal/Progress.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::Progress;

TEST(ProgressTest, BarShowsTheStepsDone) {
    EXPECT_EQ(Progress::barOf("checking", 1, 3), "checking [##########....................] 1/3");
    EXPECT_EQ(Progress::barOf("checking", 9, 3), "checking [##############################] 3/3");
    EXPECT_EQ(Progress::barOf("checking", 0, 0), "checking [##############################] 0/0");
}

} // namespace
} // namespace refdoc_tests
