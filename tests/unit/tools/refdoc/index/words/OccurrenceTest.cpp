#include "tools/refdoc/index/words/Occurrence.hpp"

#include <gtest/gtest.h>

namespace refdoc::site {
namespace {

Occurrences occurrencesOf(Occurrence name, Occurrence href, Occurrence purpose) {
    Occurrences occurrences;
    occurrences.add(SearchField::Name, name);
    occurrences.add(SearchField::Href, href);
    occurrences.add(SearchField::Purpose, purpose);
    return occurrences;
}

TEST(OccurrenceTest, CodeHasTwoBitsForEachField) {
    EXPECT_EQ(occurrencesOf(Occurrence::Whole, Occurrence::None, Occurrence::Inside).code(), 0x13);
}

TEST(OccurrenceTest, FieldKeepsItsBestOccurrence) {
    Occurrences occurrences;
    occurrences.add(SearchField::Href, Occurrence::AtStart);
    occurrences.add(SearchField::Href, Occurrence::Inside);
    EXPECT_EQ(occurrences.in(SearchField::Href), Occurrence::AtStart);
    occurrences.add(SearchField::Href, Occurrence::Whole);
    EXPECT_EQ(occurrences.in(SearchField::Href), Occurrence::Whole);
    EXPECT_EQ(occurrences.in(SearchField::Name), Occurrence::None);
}

struct MatchCase {
    TextInWord text;
    Occurrence occurrence;
    Match match;
};

TEST(OccurrenceTest, PositionInWordAndFieldDecidesTheMatch) {
    constexpr MatchCase kCases[] = {{{.isOfLetters = true, .isAtStart = true, .isAtEnd = true},
                                     Occurrence::Whole,
                                     Match::Exact},
                                    {{.isOfLetters = true, .isAtStart = true, .isAtEnd = false},
                                     Occurrence::Whole,
                                     Match::Prefix},
                                    {{.isOfLetters = true, .isAtStart = true, .isAtEnd = true},
                                     Occurrence::AtStart,
                                     Match::Prefix},
                                    {{.isOfLetters = true, .isAtStart = true, .isAtEnd = true},
                                     Occurrence::Inside,
                                     Match::Word},
                                    {{.isOfLetters = true, .isAtStart = true, .isAtEnd = false},
                                     Occurrence::Inside,
                                     Match::Substring},
                                    {{.isOfLetters = true, .isAtStart = false, .isAtEnd = true},
                                     Occurrence::Whole,
                                     Match::Substring},
                                    {{.isOfLetters = false, .isAtStart = true, .isAtEnd = true},
                                     Occurrence::Inside,
                                     Match::Substring},
                                    {{.isOfLetters = false, .isAtStart = false, .isAtEnd = false},
                                     Occurrence::Inside,
                                     Match::Word}};
    for (const auto& [text, occurrence, match] : kCases) {
        const Occurrences inHref = occurrencesOf(Occurrence::None, occurrence, Occurrence::None);
        EXPECT_EQ(matchesOf(text)[inHref.code()], (FieldMatch{match, SearchField::Href}))
            << static_cast<int>(match);
    }
}

TEST(OccurrenceTest, FieldThatMatchesBestCounts) {
    const TextInWord text{.isOfLetters = true, .isAtStart = true, .isAtEnd = true};
    const Occurrences occurrences =
        occurrencesOf(Occurrence::AtStart, Occurrence::Inside, Occurrence::Whole);
    EXPECT_EQ(matchesOf(text)[occurrences.code()],
              (FieldMatch{Match::Exact, SearchField::Purpose}));
}

} // namespace
} // namespace refdoc::site
