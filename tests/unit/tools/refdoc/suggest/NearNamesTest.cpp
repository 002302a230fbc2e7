#include "tools/refdoc/suggest/NearNames.hpp"

#include <gtest/gtest.h>

#include <tuple>

namespace refdoc_tests {
namespace {

using namespace refdoc;

TEST(EditDistanceTest, CountsEdits) {
    const std::vector<std::tuple<std::u16string, std::u16string, std::size_t>> cases{
        {u"", u"", 0},
        {u"graft", u"graft", 0},
        {u"graft", u"Graft", 0},
        {u"graft", u"craft", 1},
        {u"graft", u"grafts", 1},
        {u"graft", u"gaft", 1},
        {u"graft", u"garft", 1},
        {u"graft", u"tfarg", 4},
        {u"", u"abc", 3},
        {u"ab", u"ba", 1},
        {u"kitten", u"sitting", 3},
        {u"ca", u"abc", 3},
        {u"xgraft", u"Xgarft", 1},
        {u"graft.a", u"graft.bc", 2},
        {u"abcd", u"badc", 2}};
    for (const auto& [left, right, distance] : cases) {
        EXPECT_EQ(editDistance(left, right, 5), distance) << testing::PrintToString(right);
        EXPECT_EQ(editDistance(right, left, 5), distance) << testing::PrintToString(right);
    }
}

TEST(EditDistanceTest, CountsCaseIfItIsDistinct) {
    EXPECT_EQ(editDistance(u"Graft", u"gRaft", 5, LetterCase::Distinct), 2U);
    EXPECT_EQ(editDistance(u"graft", u"graft", 5, LetterCase::Distinct), 0U);
    EXPECT_EQ(editDistance(u"garft", u"graft", 5, LetterCase::Distinct), 1U);
}

TEST(EditDistanceTest, StopsAtLimit) {
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 3), 3U);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 2), 3U);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 1), 2U);
    EXPECT_EQ(editDistance(u"a", u"b", 0), 1U);
    EXPECT_EQ(editDistance(u"grafting", u"graft", 2), 3U);
    EXPECT_EQ(editDistance(std::u16string(100000, u'a'), std::u16string(100001, u'b'), 3), 4U);
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
