#include "tools/refdoc/check/fix/FixPlan.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace refdoc::check {
namespace {

Edit edit(std::size_t offset, std::string original, std::string replacement) {
    return {.location = {.position = TextPlace{.offset = offset}},
            .original = std::move(original),
            .replacement = std::move(replacement)};
}

TEST(Edited, ReplacesInAnyOrder) {
    EXPECT_EQ(edited("abcdef", {edit(4, "ef", "E"), edit(0, "a", ""), edit(1, "b", "BBB")}),
              "BBBcdE");
    EXPECT_EQ(edited("abc", {}), "abc");
    EXPECT_EQ(edited("abc", {edit(2, "c", "d")}), "abd");
}

TEST(Edited, MakesRepeatedEditOnce) {
    EXPECT_EQ(edited("abc", {edit(1, "b", "B"), edit(1, "b", "B")}), "aBc");
}

TEST(Edited, RejectsTextThatIsNotTheCheckedOne) {
    EXPECT_EQ(edited("abc", {edit(1, "c", "C")}), std::nullopt);
    EXPECT_EQ(edited("abc", {edit(2, "cd", "C")}), std::nullopt);
    EXPECT_EQ(edited("", {edit(9, "a", "b")}), std::nullopt);
    EXPECT_EQ(edited("abc", {edit(0, "ab", "x"), edit(1, "b", "y")}), std::nullopt);
}

} // namespace
} // namespace refdoc::check
