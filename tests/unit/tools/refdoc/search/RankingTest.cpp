#include "tools/refdoc/search/Ranking.hpp"

#include "tools/refdoc/search/CaseFolding.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::u16string>;

std::u16string folded(std::u16string_view text) {
    std::u16string result;
    foldCase(text, result);
    return result;
}

TEST(RankingTest, BestMatchOfAnyFieldDecides) {
    struct Row {
        std::u16string text;
        std::u16string name;
        std::u16string href;
        std::u16string purpose;
        std::optional<Match> match;
        SearchField field = SearchField::Name;
    };
    const std::vector<Row> rows{
        {u"smooth", u"smooth", u"", u"", Match::Exact},
        {u"smooth", u"smoother", u"", u"", Match::Prefix},
        {u"smooth", u"signal.smooth", u"", u"", Match::Word},
        {u"smooth", u"signal.smooth2", u"", u"", Match::Substring},
        {u"smooth", u"smooth_all", u"", u"", Match::Prefix},
        {u"smooth", u"resmoothed smooth", u"", u"", Match::Word},
        {u"smooth", u"unsmooth", u"", u"", Match::Substring},
        {u"smooth", u"smoot", u"", u"", Match::Near},
        {u"smooth", u"smothe", u"", u"", Match::Near},
        {u"smooth", u"smot", u"", u"", Match::Near},
        {u"smooth", u"smo", u"", u"", std::nullopt},
        {u"graft", u"gratf", u"", u"", Match::Near},
        {u"graft", u"gartf", u"", u"", std::nullopt},
        {u"ab", u"ac", u"", u"", std::nullopt},
        {u"abc", u"abd", u"", u"", Match::Near},
        {u"", u"", u"", u"", std::nullopt},
        {u"smooth", u"x", u"ref/smooth.html", u"", Match::Word, SearchField::Href},
        {u"ref/", u"x", u"ref/smooth.html", u"", Match::Prefix, SearchField::Href},
        {u"ref/smooht.html", u"x", u"ref/smooth.html", u"", std::nullopt},
        {u"window", u"x", u"", u"moving window", Match::Word, SearchField::Purpose},
        {u"widnow", u"x", u"", u"window", std::nullopt},
        {u"smooth", u"unsmooth", u"", u"smooth", Match::Exact, SearchField::Purpose},
        {u"smooth", u"smoother", u"", u"smooth a series", Match::Prefix},
        {u"größe", u"die größe.", u"", u"", Match::Word},
        {u"grö", u"ungröße", u"", u"", Match::Substring},
        {u"接続", u"機器接続部", u"", u"", Match::Substring},
        {u"𝑤", u"weight 𝑤, or", u"", u"", Match::Word},
        {u"𝑤", u"𝑦𝑤", u"", u"", Match::Substring}};
    for (const Row& row : rows) {
        const std::optional<Rank> rank =
            rankOf({row.text}, {.name = row.name, .href = row.href, .purpose = row.purpose});
        const std::optional<Rank> expected =
            row.match ? std::optional(Rank{*row.match, true, false, row.field}) : std::nullopt;
        EXPECT_EQ(rank, expected) << testing::PrintToString(row.text) << " in "
                                  << testing::PrintToString(row.name);
    }
}

TEST(RankingTest, MatchPrecedesInstalledPrecedesCurrentPrecedesField) {
    const std::vector<std::pair<std::string, SearchedRecord>> records{
        {"exact", {u"graft", u"", u"", true, false}},
        {"exact, deprecated", {u"graft", u"", u"", true, true}},
        {"exact, not installed", {u"graft", u"", u"", false, false}},
        {"exact, neither", {u"graft", u"", u"", false, true}},
        {"prefix of the name", {u"grafts", u"", u"", true, false}},
        {"prefix of the link", {u"x", u"graft.html", u"", true, false}},
        {"prefix of the purpose", {u"x", u"", u"graft trees", true, false}},
        {"prefix of a deprecated name", {u"grafts", u"", u"", true, true}},
        {"prefix, not installed", {u"grafts", u"", u"", false, false}},
        {"word", {u"a graft", u"", u"", true, false}},
        {"substring", {u"regraft", u"", u"", true, false}},
        {"near", {u"craft", u"", u"", true, false}}};
    for (std::size_t at = 1; at < records.size(); ++at)
        EXPECT_LT(rankOf({u"graft"}, records[at - 1].second),
                  rankOf({u"graft"}, records[at].second))
            << records[at].first;
}

TEST(RankingTest, EachTextMustMatchAndTheWorstDecides) {
    const SearchedRecord record{u"smooth", u"a.html", u"with a moving window", true, false};
    EXPECT_EQ(rankOf({u"smooth", u"mov"}, record),
              (Rank{Match::Substring, false, false, SearchField::Purpose}));
    EXPECT_EQ(rankOf({u"mov", u"smooth"}, record),
              (Rank{Match::Substring, false, false, SearchField::Purpose}));
    EXPECT_EQ(rankOf({u"smooth", u"sharp"}, record), std::nullopt);
}

TEST(RankingTest, AbsentFieldsAreNotSearched) {
    EXPECT_EQ(rankOf({u"graft"}, {.href = u"graft"}),
              (Rank{Match::Exact, true, false, SearchField::Href}));
    EXPECT_EQ(rankOf({u"graft"}, {}), std::nullopt);
}

TEST(CaseFoldingTest, FoldsEveryScriptThatHasCases) {
    const std::vector<std::pair<std::u16string, std::u16string>> rows{
        {u"Smooth-2", u"smooth-2"},
        {u"GRÖSSE", u"grösse"},
        {u"Größe", u"grösse"},
        {u"ΣΊΣΥΦΟΣ", folded(u"σίσυφος")},
        {u"ЖУК", u"жук"},
        {u"ﬃ", u"ffi"},
        {u"𐐀", u"𐐨"},
        {u"接続", u"接続"},
        {u"\xD800", u"\xD800"},
        {u"", u""}};
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(folded(text), expected) << testing::PrintToString(text);
}

TEST(MatchesInTest, FindsEveryTextWithoutOverlaps) {
    EXPECT_THAT(matchesIn(u"Smooth smooth", {u"smooth"}, true),
                ElementsAre(TextRange{0, 6}, TextRange{7, 6}));
    EXPECT_THAT(matchesIn(u"Smooth smooth", {u"smooth"}, false), ElementsAre(TextRange{7, 6}));
    EXPECT_THAT(matchesIn(u"abcde", {u"bc", u"cd"}, true), ElementsAre(TextRange{1, 3}));
    EXPECT_THAT(matchesIn(u"aaa", {u"aa"}, true), ElementsAre(TextRange{0, 3}));
    EXPECT_THAT(matchesIn(u"abc", {u"x", u""}, true), IsEmpty());
}

TEST(MatchesInTest, CoversWholeCharactersWhoseFoldingIsLonger) {
    EXPECT_THAT(matchesIn(u"Maße ab", {u"mass"}, true), ElementsAre(TextRange{0, 3}));
    EXPECT_THAT(matchesIn(u"Maße ab", {u"mas"}, true), ElementsAre(TextRange{0, 3}));
    EXPECT_THAT(matchesIn(u"Maße ab", {u"e"}, true), ElementsAre(TextRange{3, 1}));
    EXPECT_THAT(matchesIn(u"a𐐀b", {u"𐐨"}, true), ElementsAre(TextRange{1, 2}));
}

} // namespace
} // namespace refdoc_tests
