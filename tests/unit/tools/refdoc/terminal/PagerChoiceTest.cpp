#include "tools/refdoc/terminal/PagerChoice.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::choosePager;
using refdoc::isLong;

TEST(PagerChoiceTest, UsesPagerOrLessIfInstalledAndSupported) {
    EXPECT_EQ(choosePager({std::nullopt, "xterm", true}), "less");
    EXPECT_EQ(choosePager({std::nullopt, "xterm", false}), "");
    EXPECT_EQ(choosePager({std::nullopt, "dumb", true}), "");
    EXPECT_EQ(choosePager({std::nullopt, std::nullopt, true}), "");
    EXPECT_EQ(choosePager({"more -s", "dumb", false}), "more -s");
    EXPECT_EQ(choosePager({"\t most ", "xterm", true}), "most");
    EXPECT_EQ(choosePager({"", "xterm", true}), "");
    EXPECT_EQ(choosePager({" ", "xterm", true}), "");
    EXPECT_EQ(choosePager({"cat ", "xterm", true}), "");
}

TEST(PagerChoiceTest, TextIsLongIfItLeavesNoLineForThePrompt) {
    EXPECT_FALSE(isLong("1\n2\n", {.isTerminal = true, .columns = 80, .rows = 3}));
    EXPECT_TRUE(isLong("1\n2\n3\n", {.isTerminal = true, .columns = 80, .rows = 3}));
    EXPECT_FALSE(isLong("1\n2\n3\n", {.isTerminal = true, .columns = 80, .rows = 0}));
    EXPECT_FALSE(isLong("1\n2\n3\n", {}));
}

} // namespace
} // namespace refdoc_tests
