#include "tools/refdoc/terminal/TextLayout.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <gtest/gtest.h>

#include <tuple>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using Lines = std::vector<std::u16string>;

TEST(WrapTextTest, BreaksBetweenWords) {
    const std::vector<std::tuple<std::u16string, std::size_t, Lines>> cases{
        {u"", 5, {u""}},
        {u"one", 5, {u"one"}},
        {u"one two three", 7, {u"one two", u"three"}},
        {u"one two three", 6, {u"one", u"two", u"three"}},
        {u"  one   two  ", 20, {u"one two"}},
        {u"one\ntwo\n\nthree", 20, {u"one", u"two", u"", u"three"}},
        {u"one\n", 20, {u"one", u""}},
        {u"\n", 20, {u"", u""}},
        {u"abcdefgh", 3, {u"abc", u"def", u"gh"}},
        {u"a bcdefgh i", 3, {u"a", u"bcd", u"efg", u"h i"}},
        {u"ab", 1, {u"a", u"b"}},
        {u"a\x00A0"
         u"b c",
         3,
         {u"a\x00A0"
          u"b",
          u"c"}},
    };
    for (const auto& [text, width, lines] : cases)
        EXPECT_EQ(wrapText(text, width), lines) << testing::PrintToString(text) << ' ' << width;
}

TEST(WrapTextTest, BreaksBesideWideCharactersButNotBeforeClosingPunctuation) {
    EXPECT_EQ(wrapText(u"木林森", 4), (Lines{u"木林", u"森"}));
    EXPECT_EQ(wrapText(u"木林。", 4), (Lines{u"木", u"林。"}));
    EXPECT_EQ(wrapText(u"a木b林", 3), (Lines{u"a木", u"b林"}));
    EXPECT_EQ(wrapText(u"木", 1), (Lines{u"木"}));
    EXPECT_EQ(wrapText(u"🌳🌳", 2), (Lines{u"🌳", u"🌳"}));
    EXPECT_EQ(wrapText(u"木 林", 4), (Lines{u"木", u"林"}));
    EXPECT_EQ(wrapText(u"木 林", 5), (Lines{u"木 林"}));
}

TEST(WrapTextTest, KeepsWhatCombinesWithItsCharacter) {
    EXPECT_EQ(wrapText(u"e\x0301"
                       u"e\x0301"
                       u"e\x0301",
                       2),
              (Lines{u"e\x0301"
                     u"e\x0301",
                     u"e\x0301"}));
}

TEST(WrapTextTest, NoLineIsWiderThanItShouldBe) {
    const std::u16string text =
        u"Grafting 接木 joins two trees、🌳 and e\x0301 very-long-hyphenated";
    for (std::size_t width = 2; width < 60; ++width) {
        for (const std::u16string& line : wrapText(text, width))
            EXPECT_LE(displayWidth(line), width);
    }
}

TEST(CutTextTest, PutsAnEllipsisInPlaceOfWhatDoesNotFit) {
    EXPECT_EQ(cutText(u"graft", 5), u"graft");
    EXPECT_EQ(cutText(u"graft", 4), u"gra…");
    EXPECT_EQ(cutText(u"graft", 1), u"…");
    EXPECT_EQ(cutText(u"木林森", 5), u"木林…");
    EXPECT_EQ(cutText(u"木林森", 4), u"木…");
    EXPECT_EQ(cutText(u"a  bc", 4), u"a…");
}

TEST(ShareWidthTest, NarrowColumnsKeepTheirWidthAndWideOnesShareTheRest) {
    using Widths = std::vector<std::size_t>;
    EXPECT_EQ(shareWidth({}, 10), Widths());
    EXPECT_EQ(shareWidth({3, 4}, 10), (Widths{3, 4}));
    EXPECT_EQ(shareWidth({3, 40}, 10), (Widths{3, 7}));
    EXPECT_EQ(shareWidth({30, 2, 40}, 12), (Widths{5, 2, 5}));
    EXPECT_EQ(shareWidth({5, 5, 5}, 2), (Widths{1, 1, 1}));
}

} // namespace
} // namespace refdoc_tests
