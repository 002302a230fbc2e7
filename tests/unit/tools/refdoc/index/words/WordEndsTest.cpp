#include "tools/refdoc/index/words/WordEnds.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace refdoc::site {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Words wordsOf(const std::vector<std::u16string>& texts) {
    Words words;
    for (const std::u16string& text : texts)
        words.add(text, true, 0, SearchField::Name, Occurrence::Whole);
    return words;
}

std::vector<std::u16string> textsOf(const WordEnds& ends) {
    std::vector<std::u16string> texts;
    for (std::size_t at = 0; at < ends.size(); ++at)
        texts.emplace_back(ends.textAt(at));
    return texts;
}

TEST(WordEndsTest, EachCharacterBeginsAnEnd) {
    const Words words = wordsOf({u"raft", u"a"});
    EXPECT_THAT(textsOf(WordEnds(words)), ElementsAre(u"a", u"aft", u"ft", u"raft", u"t"));
}

TEST(WordEndsTest, NoEndBeginsWithinASurrogatePair) {
    const Words words = wordsOf({u"\U00010428b"});
    EXPECT_THAT(textsOf(WordEnds(words)), ElementsAre(u"b", u"\U00010428b"));
}

TEST(WordEndsTest, NoWordsHaveNoEnds) {
    const Words words;
    EXPECT_THAT(textsOf(WordEnds(words)), IsEmpty());
}

TEST(WordEndsTest, EqualEndsHaveTheOrderOfTheWords) {
    const Words words = wordsOf({u"bt", u"ct", u"at"});
    const WordEnds ends(words);
    ASSERT_THAT(textsOf(ends), ElementsAre(u"at", u"bt", u"ct", u"t", u"t", u"t"));
    EXPECT_EQ(ends.at(3).word, 0U);
    EXPECT_EQ(ends.at(4).word, 1U);
    EXPECT_EQ(ends.at(5).word, 2U);
    EXPECT_FALSE(ends.at(3).isWholeWord());
    EXPECT_TRUE(ends.at(0).isWholeWord());
}

TEST(WordEndsTest, EndsHaveTheOrderOfTheirCodeUnits) {
    std::mt19937 random(18);
    for (const unsigned unitCount : {1U, 2U, 26U, 300U, 0xFFFFU}) {
        std::vector<std::u16string> texts(300);
        for (std::u16string& text : texts) {
            for (std::size_t size = random() % 30 + 1; text.size() < size;)
                text += static_cast<char16_t>(random() % unitCount);
        }
        const Words words = wordsOf(texts);
        EXPECT_TRUE(std::ranges::is_sorted(textsOf(WordEnds(words)))) << unitCount;
    }
}

TEST(WordEndsTest, KeysAreShortAndDoNotEndWithinASurrogatePair) {
    const std::u16string start(kLongestKey - 1, u'a');
    EXPECT_EQ(keyOf(start + u"bc"), start + u"b");
    EXPECT_EQ(keyOf(start + u"\U00010428c"), start + u"\U00010428");
    EXPECT_EQ(keyOf(u"graft"), u"graft");
}

TEST(WordEndsTest, KeysHaveTheOrderOfTheEnds) {
    const std::u16string start(kLongestKey - 1, u'a');
    const Words words = wordsOf({start + u"\U00010428c", start + u"b", start + u"\uFF41", start});
    const WordEnds ends(words);
    for (std::size_t at = 1; at < ends.size(); ++at)
        EXPECT_LE(ends.keyAt(at - 1), ends.keyAt(at)) << at;
}

TEST(WordEndsTest, GroupsHaveTheSameStart) {
    const Words words = wordsOf({u"graft", u"grass", u"grow"});
    const WordEnds ends(words);
    const std::vector<std::u16string> texts = textsOf(ends);
    const auto start = static_cast<std::size_t>(std::ranges::find(texts, u"graft") - texts.begin());
    EXPECT_EQ(ends.groupEnd(start, ends.size(), 1), start + 3);
    EXPECT_EQ(ends.groupEnd(start, start + 3, 3), start + 2);
    EXPECT_EQ(ends.groupEnd(start, start + 2, 4), start + 1);
}

} // namespace
} // namespace refdoc::site
