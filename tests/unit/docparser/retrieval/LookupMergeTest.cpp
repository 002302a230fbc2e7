#include "docparser/retrieval/LookupMerge.hpp"

#include "tests/unit/docparser/AllocationCount.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::docparser;
using namespace reference::property;
using Items = DocResource<RefItemLookup>::Items;
using Records = std::vector<RefItemLookup>;
using testing::ElementsAre;
using testing::Pair;

RefItemLookup record(std::u16string href, std::u16string purpose) {
    return {u"n",  RefEntityType::Function, std::move(purpose),
            false, std::move(href),         FunctionType::Function};
}

// Merges the records of a source into those of a target under one name. Returns the target as href
// and purpose of each record.
std::u16string merged(const Records& target, const Records& source) {
    Items targetItems{{u"n", target}};
    Items sourceItems{{u"n", source}};
    mergeLookupItems(targetItems, sourceItems, unobserved);
    EXPECT_EQ(targetItems.size(), 1U);
    std::u16string text;
    for (const RefItemLookup& each : targetItems.at(u"n"))
        text += each.getHref() + u':' + each.getRefPurpose() + u' ';
    return text;
}

TEST(LookupMerge, MovesNamesThatTheTargetLacksWithAllRecords) {
    Items target{{u"b", {record(u"1", u"t")}}};
    Items source{{u"a", {record(u"1", u"s"), record(u"1", u"s")}}, {u"c", {record(u"2", u"s")}}};
    mergeLookupItems(target, source, unobserved);
    EXPECT_THAT(target, ElementsAre(Pair(u"a", ElementsAre(record(u"1", u"s"), record(u"1", u"s"))),
                                    Pair(u"b", ElementsAre(record(u"1", u"t"))),
                                    Pair(u"c", ElementsAre(record(u"2", u"s")))));
}

TEST(LookupMerge, ComparesNamesExactly) {
    Items target{{u"Graft", {record(u"1", u"t")}}};
    Items source{{u"graft", {record(u"2", u"s"), record(u"3", u"s")}}};
    mergeLookupItems(target, source, unobserved);
    EXPECT_THAT(target,
                ElementsAre(Pair(u"Graft", ElementsAre(record(u"1", u"t"))),
                            Pair(u"graft", ElementsAre(record(u"2", u"s"), record(u"3", u"s")))));
}

TEST(LookupMerge, KeepsATargetWithAsManyRecordsAsTheSource) {
    EXPECT_EQ(merged({record(u"1", u"t")}, {record(u"2", u"s")}), u"1:t ");
    EXPECT_EQ(
        merged({record(u"1", u"t"), record(u"2", u"t")}, {record(u"3", u"s"), record(u"4", u"s")}),
        u"1:t 2:t ");
}

TEST(LookupMerge, KeepsATargetWithMoreRecordsThanTheSource) {
    EXPECT_EQ(merged({record(u"1", u"t"), record(u"1", u"t")}, {record(u"2", u"s")}), u"1:t 1:t ");
}

TEST(LookupMerge, AppendsRecordsWithNewHrefsToATargetWithFewerRecords) {
    EXPECT_EQ(merged({record(u"2", u"t")}, {record(u"1", u"s"), record(u"2", u"s")}), u"2:t 1:s ");
    EXPECT_EQ(
        merged({record(u"9", u"t")}, {record(u"3", u"s"), record(u"1", u"s"), record(u"2", u"s")}),
        u"9:t 3:s 1:s 2:s ");
    EXPECT_EQ(merged({record(u"1", u"t")}, {record(u"1", u"s"), record(u"1", u"s2")}), u"1:t ");
}

TEST(LookupMerge, AppendsOnlyFirstSourceRecordPerHref) {
    EXPECT_EQ(merged({record(u"1", u"t")}, {record(u"2", u"first"), record(u"2", u"second")}),
              u"1:t 2:first ");
    EXPECT_EQ(
        merged({record(u"1", u"t")}, {record(u"2", u"a"), record(u"3", u"b"), record(u"2", u"c"),
                                      record(u"1", u"d"), record(u"3", u"e")}),
        u"1:t 2:a 3:b ");
}

TEST(LookupMerge, KeepsRepeatedHrefsOfTheTarget) {
    EXPECT_EQ(merged({record(u"1", u"t"), record(u"1", u"u")},
                     {record(u"1", u"s"), record(u"2", u"s"), record(u"2", u"s")}),
              u"1:t 1:u 2:s ");
}

TEST(LookupMerge, ComparesHrefsExactly) {
    EXPECT_EQ(
        merged({record(u"a.html", u"t")}, {record(u"A.html", u"s"), record(u"a.html#", u"s")}),
        u"a.html:t A.html:s a.html#:s ");
}

TEST(LookupMerge, AnEmptySideChangesNothing) {
    const Items full{{u"n", {record(u"1", u"t")}}};
    Items target = full;
    Items none;
    mergeLookupItems(target, none, unobserved);
    EXPECT_EQ(target, full);
    Items source = full;
    mergeLookupItems(none, source, unobserved);
    EXPECT_EQ(none, full);
}

// The simplest implementation of the merge rule, regardless of cost.
void mergeWordByWord(Items& target, const Items& source) {
    for (const auto& [name, records] : source) {
        const auto [entry, isNew] = target.try_emplace(name, records);
        Records& known = entry->second;
        if (isNew || known.size() >= records.size())
            continue;
        for (const RefItemLookup& candidate : records) {
            const bool hasHref = std::ranges::any_of(known, [&](const RefItemLookup& other) {
                return other.getHref() == candidate.getHref();
            });
            if (!hasHref)
                known.push_back(candidate);
        }
    }
}

class RandomItems {
public:
    Items next() {
        Items items;
        for (const char16_t name : {u'a', u'b', u'c'}) {
            Records records;
            for (unsigned left = below(5); left > 0; --left)
                records.push_back(
                    record(std::u16string(1, static_cast<char16_t>(u'1' + below(4))),
                           std::u16string(1, static_cast<char16_t>(u'A' + below(26)))));
            if (!records.empty())
                items.emplace(std::u16string(1, name), std::move(records));
        }
        return items;
    }

private:
    unsigned below(unsigned end) { return static_cast<unsigned>(generator_() % end); }

    std::mt19937 generator_{20'240'117};
};

TEST(LookupMerge, AgreesWithAPlainVersionOfTheRule) {
    RandomItems random;
    for (int round = 0; round < 20'000; ++round) {
        Items target = random.next();
        Items source = random.next();
        Items expected = target;
        mergeWordByWord(expected, source);
        mergeLookupItems(target, source, unobserved);
        ASSERT_EQ(target, expected) << "round " << round;
    }
}

TEST(LookupMerge, MovesNamesWithoutCopying) {
    Items target{{u"a", {record(u"1", u"t")}}};
    Items source{{std::u16string(100, u'n'), {record(std::u16string(100, u'h'), u"s")}}};
    const char16_t* const name = source.begin()->first.data();
    const RefItemLookup* const records = source.begin()->second.data();
    const char16_t* const href = records->getHref().data();

    const AllocationCount count;
    mergeLookupItems(target, source, unobserved);
    EXPECT_EQ(count.requests(), 0U);
    const auto& [movedName, movedRecords] = *std::next(target.begin());
    EXPECT_EQ(movedName.data(), name);
    EXPECT_EQ(movedRecords.data(), records);
    EXPECT_EQ(movedRecords.front().getHref().data(), href);
}

TEST(LookupMerge, CopiesAppendedRecordsAndMovesThoseOfTheTarget) {
    const std::u16string purpose(100, u'p');
    Items target{{u"n", {record(u"1", purpose)}}};
    Items source{{u"n", {record(u"2", purpose), record(u"3", purpose)}}};
    const char16_t* const own = target.at(u"n").front().getRefPurpose().data();
    mergeLookupItems(target, source, unobserved);
    EXPECT_EQ(target.at(u"n").front().getRefPurpose().data(), own);
    EXPECT_THAT(target.at(u"n"),
                ElementsAre(record(u"1", purpose), record(u"2", purpose), record(u"3", purpose)));
    EXPECT_THAT(source.at(u"n"), ElementsAre(record(u"2", purpose), record(u"3", purpose)));
}

TEST(LookupMerge, MergesManyRecordsOfOneNameInOnePass) {
    constexpr unsigned kCount = 50'000;
    const auto href = [](unsigned number) {
        const std::string digits = std::to_string(number);
        return std::u16string(digits.begin(), digits.end());
    };
    Records known;
    Records others;
    for (unsigned i = 0; i + 1 < kCount; ++i)
        known.push_back(record(href(i), u""));
    for (unsigned i = 0; i < kCount; ++i)
        others.push_back(record(href(kCount - 2 + i), u""));
    Items target{{u"n", std::move(known)}};
    Items source{{u"n", std::move(others)}};

    const AllocationCount count;
    mergeLookupItems(target, source, unobserved);
    EXPECT_EQ(target.at(u"n").size(), 2 * kCount - 2);
    EXPECT_EQ(target.at(u"n").back().getHref(), href(2 * kCount - 3));
    EXPECT_LT(count.requests(), 4 * kCount);
}

} // namespace
} // namespace docparser_tests
