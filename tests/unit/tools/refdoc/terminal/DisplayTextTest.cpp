#include "tools/refdoc/terminal/DisplayText.hpp"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc;

TEST(DisplayTextTest, CountsTheColumnsOfATerminal) {
    const std::vector<std::pair<std::u16string, std::size_t>> cases{
        {u"", 0},       {u"abc", 3}, {u"é", 1},       {u"e\x0301", 1},  {u"木", 2},
        {u"Ａ", 2},     {u"ｱ", 1},   {u"한", 2},      {u"𠮷", 2},       {u"🌳", 2},
        {u"𝑔", 1},      {u"θ", 1},   {u"\x200B", 0},  {u"か\x3099", 2}, {u"…", 1},
        {u"\xD83C", 1}, {u"␛", 1},   {u"❤\xFE0F", 1}, {u"Ω≈ç√", 4},     {u"、", 2}};
    for (const auto& [text, width] : cases)
        EXPECT_EQ(displayWidth(text), width) << testing::PrintToString(text);
}

TEST(DisplayTextTest, ReadsCodePoints) {
    const std::u16string text = u"a🌳\xD83C\xDF33\xDF33\xD83C";
    std::vector<char32_t> codePoints;
    for (std::size_t position = 0; position < text.size();)
        codePoints.push_back(nextCodePoint(text, position));
    EXPECT_EQ(codePoints, (std::vector<char32_t>{U'a', U'🌳', U'🌳', 0xFFFD, 0xFFFD}));
}

TEST(DisplayTextTest, TextKeepsItsLinesAndLosesItsControls) {
    EXPECT_EQ(visibleText(u"a\tb\nc\r\nd\re\x1b[0m\x7f\x85"), u"a b\nc\nd␍e␛[0m␡\xFFFD");
    EXPECT_EQ(visibleText(std::u16string(1, u'\0')), u"␀");
}

TEST(DisplayTextTest, ALineLosesAllControls) {
    EXPECT_EQ(visibleLine(std::u16string_view(u"a\tb\nc\r\n\x9f")), u"a␉b␊c␍␊\xFFFD");
    EXPECT_EQ(visibleLine(std::string_view("a\n\xff木")), "a␊\xef\xbf\xbd木");
}

} // namespace
} // namespace refdoc_tests
