#include "tools/refdoc/suggest/NearNames.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using namespace refdoc;

TEST(NameDistanceTest, IgnoresTheCaseOfAsciiLetters) {
    EXPECT_EQ(nameDistance(u"graft", u"Graft", 5), 0U);
    EXPECT_EQ(nameDistance(u"xgraft", u"Xgarft", 1), 1U);
    EXPECT_EQ(nameDistance(u"\u00E4", u"\u00C4", 5), 1U);
    EXPECT_EQ(nameDistance(u"kitten", u"sitting", 1), 2U);
    EXPECT_TRUE(isSameName(u"graft", u"GRAFT"));
    EXPECT_FALSE(isSameName(u"graft", u"grafts"));
    EXPECT_FALSE(isSameName(u"\u00E4", u"\u00C4"));
}

TEST(NearNamesTest, ReturnsNearestFirstEachOnceUpToTheMaximum) {
    using Names = std::vector<std::u16string>;
    const std::vector<std::u16string_view> known{u"smooth", u"smoothed", u"soothe",
                                                 u"smooth", u"plot",     u"Smoth"};
    EXPECT_EQ(nearNames(u"smoth", known, 3), (Names{u"Smoth", u"smooth", u"soothe"}));
    EXPECT_EQ(nearNames(u"smooths", known, 3), (Names{u"smooth", u"Smoth", u"smoothed"}));
    EXPECT_EQ(nearNames(u"smooths", known, 1), (Names{u"smooth"}));
    EXPECT_EQ(nearNames(u"zebra", known, 3), Names());
    EXPECT_EQ(nearNames(u"", known, 3), Names());
}

TEST(NearNamesTest, ShortNamesHaveFewNearNames) {
    using Names = std::vector<std::u16string>;
    EXPECT_EQ(nearNames(u"a", {u"b", u"A", u"ab"}, 3), Names{u"A"});
    EXPECT_EQ(nearNames(u"ab", {u"ac", u"cd", u"b"}, 3), (Names{u"ac", u"b"}));
}

} // namespace
} // namespace refdoc_tests
