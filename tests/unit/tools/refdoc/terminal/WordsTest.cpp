#include "tools/refdoc/terminal/Words.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::alternatives;

TEST(WordsTest, ListsAlternatives) {
    EXPECT_EQ(alternatives({"a"}), "a");
    EXPECT_EQ(alternatives({"a", "b"}), "a or b");
    EXPECT_EQ(alternatives({"a", "b", "c"}), "a, b or c");
}

} // namespace
} // namespace refdoc_tests
