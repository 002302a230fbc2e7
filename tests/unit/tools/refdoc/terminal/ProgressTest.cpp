#include "tools/refdoc/terminal/Progress.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace refdoc_tests {
namespace {

using namespace std::chrono_literals;
using refdoc::Progress;

// Returns what stderr receives when two stages begin and end.
std::string drawingOfTwoStages(bool isShown, std::chrono::milliseconds delay) {
    testing::internal::CaptureStderr();
    {
        Progress progress(isShown, delay);
        progress.begin("reading", 1);
        progress.begin("checking", 3);
    }
    return testing::internal::GetCapturedStderr();
}

TEST(ProgressTest, StageIsNamedBeforeItsFirstStep) {
    EXPECT_EQ(drawingOfTwoStages(/*isShown=*/true, 0ms),
              "\rreading [..............................] 0/1\x1b[K"
              "\rchecking [..............................] 0/3\x1b[K"
              "\r\x1b[K");
}

TEST(ProgressTest, NothingIsDrawnDuringTheDelay) {
    EXPECT_EQ(drawingOfTwoStages(/*isShown=*/true, 24h), "");
}

TEST(ProgressTest, HiddenBarIsNeverDrawn) {
    EXPECT_EQ(drawingOfTwoStages(/*isShown=*/false, 0ms), "");
}

TEST(ProgressTest, BarShowsTheStepsDone) {
    EXPECT_EQ(Progress::barOf("checking", 1, 3), "checking [##########....................] 1/3");
    EXPECT_EQ(Progress::barOf("checking", 9, 3), "checking [##############################] 3/3");
    EXPECT_EQ(Progress::barOf("checking", 0, 0), "checking [##############################] 0/0");
}

} // namespace
} // namespace refdoc_tests
