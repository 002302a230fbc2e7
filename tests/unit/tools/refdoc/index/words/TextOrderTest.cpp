#include "tools/refdoc/index/words/TextOrder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace refdoc::site {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::uint32_t> positionsOf(const std::vector<std::u16string>& texts) {
    return sortedPositions(texts.size(),
                           [&](std::size_t at) { return std::u16string_view(texts[at]); });
}

TEST(TextOrderTest, PositionsHaveTheOrderOfTheTexts) {
    EXPECT_THAT(positionsOf({u"b", u"", u"ab", u"a"}), ElementsAre(1, 3, 2, 0));
    EXPECT_THAT(positionsOf({u"\uFF41", u"\U00010428", u"z"}), ElementsAre(2, 1, 0));
    EXPECT_THAT(positionsOf({}), IsEmpty());
}

TEST(TextOrderTest, TextsThatDifferOnlyAfterTheirStartsAreInOrder) {
    const std::u16string start(100, u'a');
    EXPECT_THAT(positionsOf({start + u"c", start + u"b", start}), ElementsAre(2, 1, 0));
}

TEST(TextOrderTest, EqualTextsKeepTheirOrder) {
    std::mt19937 random(11);
    std::vector<std::u16string> texts(3000);
    for (std::u16string& text : texts)
        text.assign(random() % 3 * 20, static_cast<char16_t>(u'a' + random() % 3));
    std::vector<std::uint32_t> expected(texts.size());
    std::iota(expected.begin(), expected.end(), 0);
    std::ranges::stable_sort(expected, {}, [&](std::uint32_t at) { return texts[at]; });
    EXPECT_EQ(positionsOf(texts), expected);
}

} // namespace
} // namespace refdoc::site
