#include "tools/refdoc/index/words/RecordWords.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace refdoc::site {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::u16string> textsOf(const Words& words) {
    std::vector<std::u16string> texts;
    for (const Word& word : words.all())
        texts.emplace_back(word.text);
    return texts;
}

RecordWords wordsOf(std::u16string_view text) {
    RecordWords words;
    words.add(text, 0, SearchField::Name);
    return words;
}

TEST(RecordWordsTest, WordsAreOfLettersAndDigitsOrOfOtherCharacters) {
    const RecordWords words = wordsOf(u"fit2d->\u6728\u306E,\U00010428");
    EXPECT_THAT(textsOf(words.words()),
                ElementsAre(u"fit2d", u"->", u"\u6728\u306E", u",", u"\U00010428"));
    EXPECT_TRUE(words.words().all()[0].isOfLetters);
    EXPECT_FALSE(words.words().all()[1].isOfLetters);
}

TEST(RecordWordsTest, SingleSpacesAreNoWords) {
    EXPECT_THAT(textsOf(wordsOf(u"a b  c").words()), ElementsAre(u"a", u"b", u"  ", u"c"));
    EXPECT_THAT(textsOf(wordsOf(u"").words()), IsEmpty());
}

TEST(RecordWordsTest, PhrasesReachToTheNextSpace) {
    EXPECT_THAT(textsOf(wordsOf(u"a.b-c d").phrases()), ElementsAre(u".b-c", u"b-c", u"-c", u"c"));
    EXPECT_THAT(textsOf(wordsOf(u"a b").phrases()), IsEmpty());
}

TEST(RecordWordsTest, PostingHasTheBestOccurrenceInEachField) {
    RecordWords words;
    words.add(u"set", 3, SearchField::Name);
    words.add(u"a set", 3, SearchField::Purpose);
    words.add(u"set of set", 5, SearchField::Href);
    const std::vector<Posting>& postings = words.words().all().front().postings;
    ASSERT_EQ(postings.size(), 2U);
    EXPECT_EQ(postings[0].record, 3U);
    EXPECT_EQ(postings[0].occurrences.in(SearchField::Name), Occurrence::Whole);
    EXPECT_EQ(postings[0].occurrences.in(SearchField::Href), Occurrence::None);
    EXPECT_EQ(postings[0].occurrences.in(SearchField::Purpose), Occurrence::Inside);
    EXPECT_EQ(postings[1].record, 5U);
    EXPECT_EQ(postings[1].occurrences.in(SearchField::Href), Occurrence::AtStart);
}

} // namespace
} // namespace refdoc::site
