#include "tools/refdoc/diff/words/WordDiff.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc::diff;

std::string marked(const std::vector<TextRun>& runs) {
    std::string text;
    for (const TextRun& run : runs) {
        switch (run.fate) {
        case TextRun::Fate::Kept: text += run.text; break;
        case TextRun::Fate::Skipped: text += ellipsis(runs, run); break;
        case TextRun::Fate::Removed: text.append("[-").append(run.text).append("-]"); break;
        case TextRun::Fate::Added: text.append("{+").append(run.text).append("+}"); break;
        }
    }
    return text;
}

std::string difference(const std::string& oldText, const std::string& newText) {
    return marked(WordDiff().compare(oldText, newText));
}

// The text without the runs of one fate.
std::string without(TextRun::Fate fate, const std::vector<TextRun>& runs) {
    std::string text;
    for (const TextRun& run : runs) {
        if (run.fate != fate)
            text += run.text;
    }
    return text;
}

struct Case {
    const char* oldText;
    const char* newText;
    const char* result;
};

template <std::size_t count>
void expectDifferences(const Case (&cases)[count]) {
    for (const Case& each : cases)
        EXPECT_EQ(difference(each.oldText, each.newText), each.result);
}

TEST(ReportWordDiffTest, MarksChangedWords) {
    expectDifferences({
        {"", "", ""},
        {"", "new", "{+new+}"},
        {"old", "", "[-old-]"},
        {"same words", "same words", "same words"},
        {"Shifts a series.", "Shifts a signal.", "Shifts a [-series-]{+signal+}."},
        {"one two", "one big two", "one {+big +}two"},
        {"one big two", "one two", "one [-big -]two"},
        {"smooth", "smoothed", "[-smooth-]{+smoothed+}"},
        {"f(x,y)", "f(x,z)", "f(x,[-y-]{+z+})"},
        {"a  b", "a b", "a[-  -]{+ +}b"},
        {"snake_case 1", "snake_case 2", "snake_case [-1-]{+2+}"},
    });
}

TEST(ReportWordDiffTest, MarksSeveralChanges) {
    expectDifferences({
        {"the first of five short words", "the last of six short words",
         "the [-first-]{+last+} of [-five-]{+six+} short words"},
        {"a red small box in the room", "a blue large box in the hall",
         "a [-red small-]{+blue large+} box in the [-room-]{+hall+}"},
        {"one two three four", "zero one two four", "{+zero +}one two[- three-] four"},
    });
}

TEST(ReportWordDiffTest, ReplacesTextsWithFewCommonWordsAsAWhole) {
    expectDifferences({
        {"Draws the tree of a model", "Exports a table as text",
         "[-Draws the tree of a model-]{+Exports a table as text+}"},
        {"a b c d e f", "g e h i j a", "[-a b c d e f-]{+g e h i j a+}"},
        {"Finds all of the roots.", "Closes many old doors.",
         "[-Finds all of the roots-]{+Closes many old doors+}."},
    });
}

TEST(ReportWordDiffTest, ComparesGraphemesInManyScripts) {
    expectDifferences({
        {"Glättung der Reihe", "Glattung der Reihe", "[-Glättung-]{+Glattung+} der Reihe"},
        {"cafe\u0301 au lait", "cafe au lait", "[-cafe\u0301-]{+cafe+} au lait"},
        {"系列を平滑化します", "系列を正規化します", "系列を[-平滑-]{+正規+}化します"},
        {"か\u3099く", "かく", "[-か\u3099-]{+か+}く"},
        {"데이터를 읽습니다", "데이터를 씁니다", "데이터를 [-읽습니다-]{+씁니다+}"},
        {"ที่นี่", "ที่นั่น", "ที่[-นี่-]{+นั่น+}"},
        {"شجرة كبيرة", "شجرة صغيرة", "شجرة [-كبيرة-]{+صغيرة+}"},
        {"עץ גדול", "עץ קטן", "עץ [-גדול-]{+קטן+}"},
        {"ряд чисел", "ряд строк", "ряд [-чисел-]{+строк+}"},
    });
}

TEST(ReportWordDiffTest, NeverSplitsAnEmojiSequence) {
    expectDifferences({
        {"👨\u200d👩\u200d👧", "👨\u200d👩\u200d👦", "[-👨\u200d👩\u200d👧-]{+👨\u200d👩\u200d👦+}"},
        {"👍🏽👍", "👍🏿👍", "[-👍🏽-]{+👍🏿+}👍"},
        {"🇩🇪🇯🇵", "🇩🇪🇫🇷", "🇩🇪[-🇯🇵-]{+🇫🇷+}"},
        {"1\ufe0f\u20e3 x", "1 x", "[-1\ufe0f\u20e3-]{+1+} x"},
    });
}

TEST(ReportWordDiffTest, SkipsWordsFarFromChanges) {
    WordDiff diff(/*context=*/2);
    EXPECT_EQ(marked(diff.compare("a b c d e f g h", "a b c d e f g x")), "… g [-h-]{+x+}");
    EXPECT_EQ(marked(diff.compare("a b c d e f g h", "x b c d e f g h")), "[-a-]{+x+} b …");
    EXPECT_EQ(marked(diff.compare("q b c d e f g r", "x b c d e f g y")),
              "[-q-]{+x+} b … g [-r-]{+y+}");
    EXPECT_EQ(marked(diff.compare("q a b r", "x a b y")), "[-q-]{+x+} a b [-r-]{+y+}");
    EXPECT_EQ(marked(diff.compare("old a b c d e f", "a b c d e f")), "[-old -]a  …");
}

constexpr std::array kPieces{
    "a",    "b",  "the", "word",    " ",    "  ",     "\n",       ".",
    ",",    "(",  "é",   "e\u0301", "系",   "列",     "か\u3099", "👨\u200d👩\u200d👧",
    "🇩🇪",   "🇯🇵", "ש",   "ที่",       "한글", "\u0301", "\u200d",   "\u202e",
    "\xff", "\r", "0"};

std::string randomText(std::mt19937& random, std::size_t pieces) {
    std::string text;
    while (pieces-- > 0)
        text += kPieces[random() % kPieces.size()];
    return text;
}

// The text with a few pieces replaced.
std::string edited(std::string text, std::mt19937& random) {
    for (auto edits = random() % 6; edits > 0; --edits) {
        const std::size_t at = random() % (text.size() + 1);
        text.replace(at, random() % 8, randomText(random, random() % 4));
    }
    return text;
}

std::set<std::size_t> graphemeEnds(std::string_view text) {
    std::set<std::size_t> ends{0};
    for (std::size_t position = 0; position < text.size();) {
        refdoc::nextGrapheme(text, position);
        ends.insert(position);
    }
    return ends;
}

// Whether each run of one side ends where a grapheme does, apart from CR LF, which displayed text
// never has.
void expectWholeGraphemes(TextRun::Fate other, const std::vector<TextRun>& runs) {
    const std::string text = without(other, runs);
    const std::set<std::size_t> ends = graphemeEnds(text);
    std::size_t position = 0;
    for (const TextRun& run : runs) {
        if (run.fate == other)
            continue;
        position += run.text.size();
        EXPECT_TRUE(ends.contains(position) || text[position - 1] == '\r') << position;
    }
}

TEST(ReportWordDiffTest, RunsMakeUpBothTexts) {
    std::mt19937 random(7);
    WordDiff diff;
    WordDiff shortDiff(/*context=*/3);
    for (int round = 0; round < 4000; ++round) {
        const std::string oldText = randomText(random, random() % 60);
        const std::string newText =
            round % 3 == 0 ? randomText(random, random() % 60) : edited(oldText, random);
        for (WordDiff* each : {&diff, &shortDiff}) {
            const std::vector<TextRun>& runs = each->compare(oldText, newText);
            ASSERT_EQ(without(TextRun::Fate::Added, runs).size(), oldText.size()) << oldText;
            ASSERT_EQ(without(TextRun::Fate::Added, runs), oldText);
            ASSERT_EQ(without(TextRun::Fate::Removed, runs), newText);
            expectWholeGraphemes(TextRun::Fate::Added, runs);
            expectWholeGraphemes(TextRun::Fate::Removed, runs);
        }
    }
}

TEST(ReportWordDiffTest, FewEditsAreFoundInLongTexts) {
    std::string oldText;
    for (int word = 0; word < 20000; ++word)
        oldText += "w" + std::to_string(word % 977) + ' ';
    std::string newText = oldText;
    newText.replace(newText.find("w500 "), 4, "x");
    newText.replace(newText.rfind("w300 "), 4, "y");
    const std::string result = marked(WordDiff(/*context=*/2).compare(oldText, newText));
    EXPECT_EQ(result, "… w499 [-w500-]{+x+} w501 … w299 [-w300-]{+y+} w301 …");
}

// The shortest script by dynamic programming.
std::size_t shortestScript(const std::vector<std::size_t>& left,
                           const std::vector<std::size_t>& right) {
    std::vector<std::vector<std::size_t>> common(left.size() + 1,
                                                 std::vector<std::size_t>(right.size() + 1));
    for (std::size_t i = 0; i < left.size(); ++i) {
        for (std::size_t j = 0; j < right.size(); ++j)
            common[i + 1][j + 1] = left[i] == right[j]
                                       ? common[i][j] + 1
                                       : std::max(common[i][j + 1], common[i + 1][j]);
    }
    return left.size() + right.size() - 2 * common[left.size()][right.size()];
}

TEST(ReportEditScriptTest, FindsTheShortestScript) {
    std::mt19937 random(11);
    EditScript script(/*mostEdits=*/64);
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::size_t> left(random() % 16);
        std::vector<std::size_t> right(random() % 16);
        for (std::vector<std::size_t>* each : {&left, &right})
            std::ranges::generate(*each, [&] { return random() % 4; });
        std::vector<Match> matches;
        script.findMatches(left, right, matches);
        std::size_t matched = 0;
        Match previous{};
        for (const Match& match : matches) {
            ASSERT_GE(match.oldBegin, previous.oldEnd());
            ASSERT_GE(match.newBegin, previous.newEnd());
            for (std::size_t at = 0; at < match.size; ++at)
                ASSERT_EQ(left[match.oldBegin + at], right[match.newBegin + at]);
            matched += match.size;
            previous = match;
        }
        ASSERT_EQ(left.size() + right.size() - 2 * matched, shortestScript(left, right));
    }
}

TEST(ReportEditScriptTest, FindsNothingBeyondTheAllowedEdits) {
    const std::vector<std::size_t> left{1, 2, 3, 4};
    const std::vector<std::size_t> right{1, 5, 3, 6};
    std::vector<Match> matches;
    EditScript(/*mostEdits=*/3).findMatches(left, right, matches);
    EXPECT_TRUE(matches.empty());
    EditScript(/*mostEdits=*/4).findMatches(left, right, matches);
    EXPECT_EQ(matches, (std::vector<Match>{{0, 0, 1}, {2, 2, 1}}));
}

} // namespace
} // namespace refdoc_tests
