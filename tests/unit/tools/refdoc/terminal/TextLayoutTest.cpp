#include "tools/refdoc/terminal/TextLayout.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <gtest/gtest.h>

#include <tuple>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using Lines = std::vector<std::string>;

TEST(WrapTextTest, BreaksBetweenWords) {
    const std::vector<std::tuple<std::string, std::size_t, Lines>> cases{
        {"", 5, {""}},
        {"one", 5, {"one"}},
        {"one two three", 7, {"one two", "three"}},
        {"one two three", 6, {"one", "two", "three"}},
        {"  one   two  ", 20, {"one two"}},
        {"one\ntwo\n\nthree", 20, {"one", "two", "", "three"}},
        {"one\n", 20, {"one", ""}},
        {"\n", 20, {"", ""}},
        {"abcdefgh", 3, {"abc", "def", "gh"}},
        {"a bcdefgh i", 3, {"a", "bcd", "efg", "h i"}},
        {"ab", 1, {"a", "b"}},
        {"a\u00a0b c", 3, {"a\u00a0b", "c"}},
    };
    for (const auto& [text, width, lines] : cases)
        EXPECT_EQ(wrapText(text, width), lines) << text << ' ' << width;
}

TEST(WrapTextTest, BreaksBesideEastAsianCharacters) {
    EXPECT_EQ(wrapText("木林森", 4), (Lines{"木林", "森"}));
    EXPECT_EQ(wrapText("a木b林", 3), (Lines{"a木", "b林"}));
    EXPECT_EQ(wrapText("木", 1), (Lines{"木"}));
    EXPECT_EQ(wrapText("🌳🌳", 2), (Lines{"🌳", "🌳"}));
    EXPECT_EQ(wrapText("木 林", 4), (Lines{"木", "林"}));
    EXPECT_EQ(wrapText("木 林", 5), (Lines{"木 林"}));
    EXPECT_EQ(wrapText("ｶﾀｶﾅ", 2), (Lines{"ｶﾀ", "ｶﾅ"}));
    EXPECT_EQ(wrapText("한국어", 4), (Lines{"한국", "어"}));
}

TEST(WrapTextTest, ClosingPunctuationAndSmallKanaDoNotBeginALine) {
    for (const std::string character :
         {"。", "、", "，", "．", "」", "』", "）", "】", "〉", "》", "〕", "］", "｝", "！", "？",
          "：", "；", "・", "ー", "々", "ぁ", "っ", "ャ", "ッ", "”",  "’",  "…",  "゛", "ゝ", "〜"})
        EXPECT_EQ(wrapText("木林" + character, 4).back(), "林" + character);
    for (const std::string character : {"ｯ", "ｰ", "｡", "､", "｣", ")", "]", "}", "!", "?", ".", ","})
        EXPECT_EQ(wrapText("木林" + character, 4).back(), "林" + character);
    EXPECT_EQ(wrapText("木林 。", 5), (Lines{"木", "林 。"}));
}

TEST(WrapTextTest, OpeningPunctuationDoesNotEndALine) {
    for (const std::string character : {"「", "『", "（", "【", "〈", "《", "〔", "［", "｛"})
        EXPECT_EQ(wrapText("木林" + character + "森", 6), (Lines{"木林", character + "森"}));
    for (const std::string character : {"“", "‘"})
        EXPECT_EQ(wrapText("木林" + character + "森", 6), (Lines{"木林", character + "森"}));
    EXPECT_EQ(wrapText("木(林森", 3).front(), "木");
}

TEST(WrapTextTest, WordsOfAsciiCharactersStayWhole) {
    EXPECT_EQ(wrapText("use --case-sensitive ref/a-b.html", 18),
              (Lines{"use", "--case-sensitive", "ref/a-b.html"}));
}

TEST(WrapTextTest, TooLongPathIsBrokenAfterASlash) {
    EXPECT_EQ(wrapText("help/reference/Orchard.json", 20),
              (Lines{"help/reference/", "Orchard.json"}));
    EXPECT_EQ(wrapText("help/reference", 6), (Lines{"help/", "refere", "nce"}));
}

TEST(WrapTextTest, TooLongWordIsNotBrokenBesidePunctuation) {
    EXPECT_EQ(wrapText("smooth(x)", 7), (Lines{"smooth", "(x)"}));
    EXPECT_EQ(wrapText("smooth(x)", 8), (Lines{"smooth", "(x)"}));
    EXPECT_EQ(wrapText("abcdefgh。", 8), (Lines{"abcdefg", "h。"}));
    EXPECT_EQ(wrapText("ไทยไทย。", 6), (Lines{"ไทยไท", "ย。"}));
    EXPECT_EQ(wrapText("木。。。", 4), (Lines{"木。", "。。"}));
}

TEST(WrapTextTest, NeverBreaksAGrapheme) {
    EXPECT_EQ(wrapText("e\u0301e\u0301e\u0301", 2), (Lines{"e\u0301e\u0301", "e\u0301"}));
    EXPECT_EQ(wrapText("हिन्दी", 2), (Lines{"हि", "न्", "दी"}));
    EXPECT_EQ(wrapText("👩\u200d🚒👩\u200d🚒", 3), (Lines{"👩\u200d🚒", "👩\u200d🚒"}));
}

TEST(WrapTextTest, NoLineIsWiderThanTheWidth) {
    const std::string text =
        "Grafting 接木 joins two trees、🌳 and e\u0301 हिन्दी น้ำ 👩\u200d🚒 🇩🇪🇯🇵 very-long-hyphenated";
    for (std::size_t width = 2; width < 60; ++width) {
        for (const std::string& line : wrapText(text, width))
            EXPECT_LE(displayWidth(line), width);
    }
}

TEST(CutTextTest, ReplacesTheEndWithAnEllipsis) {
    EXPECT_EQ(cutText("graft", 5), "graft");
    EXPECT_EQ(cutText("graft", 4), "gra…");
    EXPECT_EQ(cutText("graft", 1), "…");
    EXPECT_EQ(cutText("木林森", 5), "木林…");
    EXPECT_EQ(cutText("木林森", 4), "木…");
    EXPECT_EQ(cutText("a  bc", 4), "a…");
    EXPECT_EQ(cutText("e\u0301e\u0301e\u0301", 2), "e\u0301…");
}

TEST(ShareWidthTest, NarrowColumnsKeepTheirWidthAndWideColumnsShareTheRest) {
    using Widths = std::vector<std::size_t>;
    EXPECT_EQ(shareWidth({}, 10), Widths());
    EXPECT_EQ(shareWidth({3, 4}, 10), (Widths{3, 4}));
    EXPECT_EQ(shareWidth({3, 40}, 10), (Widths{3, 7}));
    EXPECT_EQ(shareWidth({30, 2, 40}, 12), (Widths{5, 2, 5}));
    EXPECT_EQ(shareWidth({0, 30, 0, 40}, 12), (Widths{0, 6, 0, 6}));
    EXPECT_EQ(shareWidth({5, 5, 5}, 2), (Widths{1, 1, 1}));
}

} // namespace
} // namespace refdoc_tests
