#include "tools/refdoc/index/BestRecords.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace refdoc::site {
namespace {

using reference::docparser::LookupIndex;
using reference::property::FunctionType;
using reference::property::HeaderInfo;
using reference::property::RefEntityType;
using reference::property::RefItemLookup;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr FieldMatch kExactName{Match::Exact, SearchField::Name};
constexpr FieldMatch kPrefixOfName{Match::Prefix, SearchField::Name};
constexpr FieldMatch kPrefixOfPurpose{Match::Prefix, SearchField::Purpose};

std::vector<std::uint32_t> recordsIn(const BestRecords& best) {
    std::vector<std::uint32_t> records;
    for (std::size_t at = 0; at < best.size(); ++at)
        records.push_back(best[at]);
    return records;
}

TEST(BestRecordsTest, MatchClassFieldAndRecordDecideInThisOrder) {
    BestRecords best;
    best.add(kPrefixOfPurpose, 0, 1);
    best.add(kPrefixOfName, 0, 3);
    best.add(kPrefixOfName, 0, 2);
    best.add(kPrefixOfName, 1, 4);
    best.add(kExactName, 3, 5);
    EXPECT_THAT(recordsIn(best), ElementsAre(5, 2, 3, 1, 4));
}

TEST(BestRecordsTest, RecordKeepsItsBestMatch) {
    BestRecords best;
    best.add(kPrefixOfName, 0, 1);
    best.add(kPrefixOfName, 0, 2);
    best.add(kExactName, 0, 2);
    best.add(kPrefixOfPurpose, 0, 2);
    EXPECT_THAT(recordsIn(best), ElementsAre(2, 1));
}

TEST(BestRecordsTest, OnlyTheBestTwentyStay) {
    BestRecords best;
    for (std::uint32_t record = 30; record > 0; --record)
        best.add(kPrefixOfName, 0, record);
    best.add(kExactName, 0, 29);
    std::vector<std::uint32_t> expected{29};
    for (std::uint32_t record = 1; record < 20; ++record)
        expected.push_back(record);
    EXPECT_EQ(recordsIn(best), expected);
}

class RandomIndex {
public:
    RandomIndex() : index_(randomIndex()), records_(index_) {
        IndexedRecords::Fields fields;
        for (std::uint32_t record = 0; record < records_.size(); ++record) {
            records_.foldFields(record, fields);
            for (const SearchField field : kFields)
                words_.add(fields[static_cast<std::size_t>(field)], record, field);
        }
    }

    const IndexedRecords& records() const { return records_; }
    const Words& words() const { return words_.words(); }

    // Returns the best records by the ranks of all of them.
    std::vector<std::uint32_t> bestRecords(std::u16string_view text) const {
        std::vector<std::pair<Rank, std::uint32_t>> ranks;
        IndexedRecords::Fields fields;
        for (std::uint32_t record = 0; record < records_.size(); ++record) {
            records_.foldFields(record, fields);
            const std::optional<Rank> rank = rankOf(
                {std::u16string(text)}, {.name = fields[0],
                                         .href = fields[1],
                                         .purpose = fields[2],
                                         .isInstalled = records_[record].isInstalled,
                                         .isDeprecated = records_[record].record->getDeprecated()});
            if (rank && rank->match != Match::Near)
                ranks.emplace_back(*rank, record);
        }
        std::ranges::sort(ranks);
        std::vector<std::uint32_t> best;
        for (std::size_t at = 0; at < std::min<std::size_t>(20, ranks.size()); ++at)
            best.push_back(ranks[at].second);
        return best;
    }

private:
    static std::u16string randomString(std::mt19937& random) {
        std::u16string string;
        for (std::size_t size = random() % 12; string.size() < size;)
            string += u"ab\u6728.- a"[random() % 7];
        return string;
    }

    static LookupIndex randomIndex() {
        std::mt19937 random(18);
        LookupIndex index;
        for (unsigned section = 0; section < 2; ++section) {
            reference::docparser::DocResource<RefItemLookup> resource{
                HeaderInfo(u"", u"", u"", u"", u"", u"", u""), {}};
            for (unsigned number = 0; number < 100; ++number) {
                const std::u16string name = randomString(random);
                const std::u16string href = randomString(random);
                resource.items[name].emplace_back(name, RefEntityType::Function,
                                                  randomString(random), random() % 4 == 0, href,
                                                  FunctionType::Function);
            }
            (section == 0 ? index.installed : index.notInstalled).emplace(u"orchard", resource);
        }
        return index;
    }

    LookupIndex index_;
    IndexedRecords records_;
    RecordWords words_;
};

TEST(BestTextsTest, RecordsAreThoseThatTheRanksOfAllRecordsGive) {
    const RandomIndex index;
    const WordEnds ends(index.words());
    std::vector<std::size_t> partStarts(ends.size()); // each end in a part of its own
    std::iota(partStarts.begin(), partStarts.end(), 0U);
    const std::vector<BestText> texts = findBestTexts(ends, partStarts, index.records());
    ASSERT_GT(texts.size(), 50U);
    for (const auto& [text, records] : texts) {
        // No text of a search has a space, which the index therefore lacks as a word.
        if (text.find(u' ') != text.npos)
            continue;
        ASSERT_EQ(recordsIn(records), index.bestRecords(text)) << testing::PrintToString(text);
    }
    EXPECT_TRUE(std::ranges::is_sorted(texts, {}, &BestText::text));
}

TEST(BestTextsTest, OnlyTextInWhichFourPartsBeginHasAList) {
    const RandomIndex index;
    const WordEnds ends(index.words());
    EXPECT_THAT(findBestTexts(ends, {0, 1, 2}, index.records()), IsEmpty());
    EXPECT_THAT(findBestTexts(ends, {0, 1, 2, 3}, index.records()), Not(IsEmpty()));
}

} // namespace
} // namespace refdoc::site
