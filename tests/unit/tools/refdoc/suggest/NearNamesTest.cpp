#include "tools/refdoc/suggest/NearNames.hpp"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace refdoc_tests {
namespace {

using namespace refdoc;

TEST(EditDistanceTest, CountsTheLettersThatDiffer) {
    const std::vector<std::tuple<std::u16string, std::u16string, std::size_t>> cases{
        {u"", u"", 0},           {u"graft", u"graft", 0},   {u"graft", u"Graft", 0},
        {u"graft", u"craft", 1}, {u"graft", u"grafts", 1},  {u"graft", u"gaft", 1},
        {u"graft", u"garft", 1}, {u"graft", u"tfarg", 4},   {u"", u"abc", 3},
        {u"ab", u"ba", 1},       {u"kitten", u"sitting", 3}};
    for (const auto& [left, right, distance] : cases) {
        EXPECT_EQ(editDistance(left, right, 5), distance) << testing::PrintToString(right);
        EXPECT_EQ(editDistance(right, left, 5), distance) << testing::PrintToString(right);
    }
}

TEST(EditDistanceTest, StopsBehindItsLimit) {
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 3), 3u);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 2), 3u);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 1), 2u);
    EXPECT_EQ(editDistance(u"a", u"b", 0), 1u);
    EXPECT_EQ(editDistance(std::u16string(100000, u'a'), std::u16string(100001, u'b'), 3), 4u);
}

// The whole table, as the definition has it.
std::size_t plainDistance(const std::u16string& left, const std::u16string& right) {
    std::vector<std::vector<std::size_t>> table(left.size() + 1,
                                                std::vector<std::size_t>(right.size() + 1));
    for (std::size_t i = 0; i <= left.size(); ++i) {
        for (std::size_t j = 0; j <= right.size(); ++j) {
            if (i == 0 || j == 0) {
                table[i][j] = i + j;
                continue;
            }
            const std::size_t change = left[i - 1] == right[j - 1] ? 0 : 1;
            table[i][j] =
                std::min({table[i - 1][j - 1] + change, table[i - 1][j] + 1, table[i][j - 1] + 1});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1])
                table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
        }
    }
    return table[left.size()][right.size()];
}

TEST(EditDistanceTest, AgreesWithTheWholeTable) {
    std::mt19937 random(1);
    const auto word = [&] {
        std::u16string text(random() % 9, u'a');
        for (char16_t& unit : text)
            unit = static_cast<char16_t>(u'a' + random() % 3);
        return text;
    };
    for (int round = 0; round < 5000; ++round) {
        const std::u16string left = word();
        const std::u16string right = word();
        for (std::size_t limit = 0; limit <= 4; ++limit)
            ASSERT_EQ(editDistance(left, right, limit),
                      std::min(plainDistance(left, right), limit + 1))
                << testing::PrintToString(left) << testing::PrintToString(right) << limit;
    }
}

TEST(NearNamesTest, GivesTheNearestFirstEachOnceAndNoMoreThanAsked) {
    using Names = std::vector<std::u16string>;
    const std::vector<std::u16string_view> known{u"smooth", u"smoothed", u"soothe",
                                                 u"smooth", u"plot",     u"Smoth"};
    EXPECT_EQ(nearNames(u"smoth", known, 3), (Names{u"Smoth", u"smooth", u"soothe"}));
    EXPECT_EQ(nearNames(u"smooths", known, 3), (Names{u"smooth", u"Smoth", u"smoothed"}));
    EXPECT_EQ(nearNames(u"smooths", known, 1), (Names{u"smooth"}));
    EXPECT_EQ(nearNames(u"zebra", known, 3), Names());
    EXPECT_EQ(nearNames(u"", known, 3), Names());
}

TEST(NearNamesTest, ShortNamesAreNearToLittle) {
    using Names = std::vector<std::u16string>;
    EXPECT_EQ(nearNames(u"a", {u"b", u"A", u"ab"}, 3), Names{u"A"});
    EXPECT_EQ(nearNames(u"ab", {u"ac", u"cd", u"b"}, 3), (Names{u"ac", u"b"}));
}

} // namespace
} // namespace refdoc_tests
