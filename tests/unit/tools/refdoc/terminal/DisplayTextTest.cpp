#include "tools/refdoc/terminal/DisplayText.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc;

void expectWidths(const std::vector<std::pair<std::string, std::size_t>>& cases) {
    for (const auto& [text, width] : cases)
        EXPECT_EQ(displayWidth(text), width) << text;
}

std::vector<std::string> graphemesOf(std::string_view text) {
    std::vector<std::string> graphemes;
    for (std::size_t position = 0; position < text.size();)
        graphemes.emplace_back(nextGrapheme(text, position).text);
    return graphemes;
}

TEST(DisplayTextTest, MeasuresWordsOfManyScripts) {
    expectWidths({{"", 0},
                  {"abc", 3},
                  {"Glättung", 8},
                  {"𝑦ᵢ = Σ 𝑤ₖ·𝑥ᵢ₊ₖ", 14},
                  {"Ω≈ç√", 4},
                  {"сглаживание", 11},
                  {"هرس", 3},
                  {"العَرَبِيَّة", 7},
                  {"עברית", 5},
                  {"עִבְרִית", 5},
                  {"बाग़", 3},
                  {"हिन्दी", 5},
                  {"দেবনাগরী", 8},
                  {"தமிழ்", 4},
                  {"ไทย", 3},
                  {"ที่นี่", 2},
                  {"น้ำ", 2},
                  {"ລາວ", 3},
                  {"ນ້ຳ", 2},
                  {"ភាសា", 4},
                  {"酵母の種類", 10},
                  {"ﾊﾝｶｸ", 4},
                  {"Ａ", 2},
                  {"𠮷", 2},
                  {"한글", 4}});
}

TEST(DisplayTextTest, MeasuresJamoLikeTheirSyllable) {
    expectWidths({{"\u1112\u1161\u11ab", 2}, {"\u1112\u1161", 2}, {"\u1112", 2}});
}

TEST(DisplayTextTest, MeasuresAnEmojiSequenceLikeOneEmoji) {
    expectWidths({{"🌳", 2},
                  {"👨\u200d👩\u200d👧\u200d👦", 2},
                  {"👍🏽", 2},
                  {"👩🏽\u200d🚒", 2},
                  {"🇩🇪", 2},
                  {"🇩🇪🇯🇵", 4},
                  {"🏴\U000e0067\U000e0062\U000e0065\U000e006e\U000e0067\U000e007f", 2}});
}

TEST(DisplayTextTest, VariationSelectorsAndKeycapsChangeNoWidth) {
    expectWidths({{"❤", 1}, {"❤\ufe0f", 1}, {"❤\ufe0e", 1}, {"⌚\ufe0f", 2}, {"1\ufe0f\u20e3", 1}});
}

TEST(DisplayTextTest, MarksAndInvisibleCharactersFillNoColumn) {
    expectWidths({{"e\u0301", 1},
                  {"e\u0301\u0323\u0330", 1},
                  {"か\u3099", 2},
                  {"\u0301", 0},
                  {"\u200b", 0},
                  {"\u2060", 0},
                  {"\u200d", 0}});
}

TEST(DisplayTextTest, UnknownAndPrivateCharactersFillOneColumn) {
    expectWidths({{"\u0378", 1}, {"\ue000", 1}, {"\ufffd", 1}, {"\xff", 1}, {"a\xe6\x9c", 3}});
}

TEST(DisplayTextTest, SplitsIntoGraphemes) {
    using Graphemes = std::vector<std::string>;
    EXPECT_EQ(graphemesOf("ae\u0301木"), (Graphemes{"a", "e\u0301", "木"}));
    EXPECT_EQ(graphemesOf("हिन्दी"), (Graphemes{"हि", "न्", "दी"}));
    EXPECT_EQ(graphemesOf("🇩🇪🇯🇵🇫"), (Graphemes{"🇩🇪", "🇯🇵", "🇫"}));
    EXPECT_EQ(graphemesOf("👩\u200d🚒👍🏽"), (Graphemes{"👩\u200d🚒", "👍🏽"}));
    EXPECT_EQ(graphemesOf("a\nb"), (Graphemes{"a", "\n", "b"}));
    EXPECT_EQ(graphemesOf("\u1112\u1161\u11ab글"), (Graphemes{"\u1112\u1161\u11ab", "글"}));
    EXPECT_EQ(graphemesOf("a\xff"), (Graphemes{"a", "\xff"}));
}

TEST(DisplayTextTest, KnowsTheBaseOfAGrapheme) {
    std::size_t position = 0;
    const Grapheme wide = nextGrapheme("か\u3099", position);
    EXPECT_EQ(wide.base, U'か');
    EXPECT_TRUE(wide.isWide);
    position = 0;
    const Grapheme narrow = nextGrapheme("हि", position);
    EXPECT_EQ(narrow.base, U'ह');
    EXPECT_EQ(narrow.width, 2U);
    EXPECT_FALSE(narrow.isWide);
}

TEST(DisplayTextTest, TextKeepsLineFeedsAndReplacesOtherControls) {
    EXPECT_EQ(visibleText(u"a\tb\nc\r\nd\re\x1b[0m\x7f\x85"), "a b\nc\nd␍e␛[0m␡\ufffd");
    EXPECT_EQ(visibleText(std::u16string(1, u'\0')), "␀");
    EXPECT_EQ(visibleText(u"a\xD83C"), "a\ufffd");
}

TEST(DisplayTextTest, LineReplacesAllControls) {
    EXPECT_EQ(visibleLine(std::u16string_view(u"a\tb\nc\r\n\x9f")), "a␉b␊c␍␊\ufffd");
    EXPECT_EQ(visibleLine(std::string_view("a\n\xff木")), "a␊\ufffd木");
}

} // namespace
} // namespace refdoc_tests
