#include "tools/refdoc/check/text/Excerpt.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

void PrintTo(const Excerpt& excerpt, std::ostream* out) {
    *out << '\n' << excerpt.line << '\n' << excerpt.marker;
}

} // namespace refdoc::check

namespace refdoc_tests {
namespace {

using namespace refdoc::check;
using refdoc::displayWidth;
using std::string_literals::operator""s;

constexpr std::size_t kWide = 200;

struct Case {
    std::string text;
    std::size_t offset;
    std::size_t length;
    std::string line;
    std::string marker;
};

void expectExcerpts(const std::vector<Case>& cases, std::size_t columns) {
    for (const Case& row : cases)
        EXPECT_EQ(excerptOf(row.text, row.offset, row.length, columns),
                  (Excerpt{row.line, row.marker}))
            << testing::PrintToString(row.text) << ' ' << row.offset;
}

TEST(ExcerptTest, MarksThePositionInItsLine) {
    expectExcerpts({{"[1,\n 2,\n 3]", 5, 1, " 2,", " ^"},
                    {"[1,\n 2,\n 3]", 0, 0, "[1,", "^"},
                    {"[1,\n 2,\n 3]", 10, 1, " 3]", "  ^"},
                    {"{\"key\": 1}", 1, 5, "{\"key\": 1}", " ^~~~~"},
                    {"a\n\nb", 2, 1, "", "^"},
                    {"", 0, 1, "", "^"}},
                   kWide);
}

TEST(ExcerptTest, MarksTheEndOfALine) {
    expectExcerpts({{"ab\ncd", 2, 1, "ab", "  ^"},
                    {"ab\r\ncd", 2, 1, "ab", "  ^"},
                    {"ab\r\ncd", 3, 1, "ab", "  ^"},
                    {"ab\ncd", 5, 1, "cd", "  ^"},
                    {"ab\ncd", 99, 9, "cd", "  ^"},
                    {"ab\n", 3, 1, "", "^"}},
                   kWide);
}

TEST(ExcerptTest, MarksNothingPastTheLine) {
    expectExcerpts({{"ab\ncd", 1, 9, "ab", " ^"},
                    {"abc\r\nd", 1, 9, "abc", " ^~"},
                    {"[1, 2]", 1, 99, "[1, 2]", " ^~~~~"}},
                   kWide);
}

TEST(ExcerptTest, ShowsControlCharactersInOneColumnEach) {
    expectExcerpts({{"\t\"a\tb\"", 3, 1, "␉\"a␉b\"", "   ^"},
                    {"a\x1B[0m\0b"s, 1, 5, "a␛[0m␀b", " ^~~~~"},
                    {"a\rb\n", 1, 1, "a␍b", " ^"},
                    {"a\r", 1, 1, "a␍", " ^"}},
                   kWide);
}

TEST(ExcerptTest, CountsTheColumnsOfCharacters) {
    expectExcerpts({{"\"木木\", é, x", 13, 1, "\"木木\", é, x", "          ^"},
                    {"木x", 0, 1, "木x", "^~"},
                    {"木x", 1, 1, "木x", "^~"}, // within the character
                    {"木x", 0, 4, "木x", "^~~"},
                    {"👩\u200D👩\u200D👧x", 0, 18, "👩\u200D👩\u200D👧x", "^~"},
                    {"e\xCC\x81x", 3, 1, "e\xCC\x81x", " ^"},
                    {"\xFF\xE6\x9Cx", 3, 1, "\xEF\xBF\xBD\xEF\xBF\xBDx", "  ^"}},
                   kWide);
}

TEST(ExcerptTest, CutsTheLineAroundThePosition) {
    const std::string line = "abcdefghijklmnopqrstuvwxyz";
    expectExcerpts({{line, 0, 1, "abcdefghijklmnopq...", "^"},
                    {line, 4, 2, "abcdefghijklmnopq...", "    ^~"},
                    {line, 10, 1, "abcdefghijklmnopq...", "          ^"},
                    {line, 13, 1, "...ghijklmnopqrst...", "          ^"},
                    {line, 16, 1, "...jklmnopqrstuvwxyz", "          ^"},
                    {line, 25, 1, "...jklmnopqrstuvwxyz", "                   ^"},
                    {line, 26, 1, "...klmnopqrstuvwxyz", "                   ^"},
                    {line.substr(0, 20), 10, 1, "abcdefghijklmnopqrst", "          ^"},
                    {line, 13, 9, "...ghijklmnopqrst...", "          ^~~~~~~~~"},
                    {line, 2, 24, "abcdefghijklmnopq...", "  ^~~~~~~~~~~~~~~~~~"}},
                   20);
    EXPECT_EQ(excerptOf(line, 13, 1, 0), excerptOf(line, 13, 1, 20));
    EXPECT_EQ(excerptOf(line, 13, 1, std::string::npos), excerptOf(line, 13, 1, 200));
}

TEST(ExcerptTest, CutsNoWideCharacterInTwo) {
    std::string line;
    for (int i = 0; i < 20; ++i)
        line += "木";
    expectExcerpts({{line, 30, 3, "...木木木木木木...", "         ^~"},
                    {'x' + line, 31, 3, "...木木木木木木...", "         ^~"}},
                   20);
}

void expectFits(std::string_view text) {
    for (std::size_t columns = 20; columns < 40; ++columns) {
        for (std::size_t offset = 0; offset <= text.size(); ++offset) {
            const auto [line, marker] = excerptOf(text, offset, 4, columns);
            EXPECT_LE(displayWidth(line), columns) << offset;
            EXPECT_LE(marker.size(), columns) << offset;
            EXPECT_NE(marker.find('^'), marker.npos) << offset;
        }
    }
}

TEST(ExcerptTest, FitsIntoItsColumnsEverywhere) {
    expectFits("{\"näme\": \"木のe\xCC\x81\t\xFF🌳\",\r\n \"key\": [1, 2.5, null]} \n");
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    expectFits(bytes);
}

TEST(ExcerptTest, LooksOnlyNearThePositionInAVeryLongLine) {
    constexpr std::size_t kHalf = 10'000'000;
    const std::string text = std::string(kHalf, 'a') + "^" + std::string(kHalf, 'b');
    const Excerpt expected{"...aaaaaaa^bbbbbb...", "          ^~~"};
    // Fifty thousand passes over the line would outlast the time limit of the test.
    for (int i = 0; i < 50'000; ++i)
        ASSERT_EQ(excerptOf(text, kHalf, 3, 20), expected);
}

} // namespace
} // namespace refdoc_tests
