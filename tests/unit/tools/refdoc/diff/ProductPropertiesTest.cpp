// Properties of comparisons that hold for all products, tried with random ones.

#include "tests/unit/tools/refdoc/diff/ApplyChanges.hpp"
#include "tests/unit/tools/refdoc/diff/RandomProduct.hpp"
#include "tools/refdoc/diff/compare/FieldChanges.hpp"
#include "tools/refdoc/diff/compare/ProductComparison.hpp"

#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc::diff;
namespace json = boost::json;

constexpr unsigned kTries = 1500;

// An entry for each header, because an empty part has none that changes could restore.
json::value withoutHeadersOfNewParts(json::value product) {
    for (json::key_value_pair& part : product.as_object()) {
        for (json::key_value_pair& section : part.value().as_object())
            section.value().as_object().erase("header");
    }
    return product;
}

json::value comparable(json::value product) {
    removeEmptyParts(product);
    return product.is_null() ? product : withoutHeadersOfNewParts(std::move(product));
}

ChangeId mirrored(ChangeId id) {
    switch (id) {
    case ChangeId::ProductAdded: return ChangeId::ProductRemoved;
    case ChangeId::ProductRemoved: return ChangeId::ProductAdded;
    case ChangeId::SectionAdded: return ChangeId::SectionRemoved;
    case ChangeId::SectionRemoved: return ChangeId::SectionAdded;
    case ChangeId::ItemAdded: return ChangeId::ItemRemoved;
    case ChangeId::ItemRemoved: return ChangeId::ItemAdded;
    case ChangeId::LookupAdded: return ChangeId::LookupRemoved;
    case ChangeId::LookupRemoved: return ChangeId::LookupAdded;
    default: return id;
    }
}

// Makes the links in a value of a moved item lead to its old page.
void followMoveBack(const Change& change, json::value& value) {
    const bool isLink = change.id == ChangeId::ItemChanged && change.field.ends_with("/href");
    json::value member = json::object{{isLink ? "href" : "value", value}};
    followMove(member, change.newHref, change.href);
    value = member.as_object().begin()->value();
}

// Swaps the sides of a change. In the values of a moved item, links lead to its new page.
Change mirrored(Change change) {
    change.id = mirrored(change.id);
    if (!change.newHref.empty()) {
        followMoveBack(change, change.oldValue);
        followMoveBack(change, change.newValue);
        std::swap(change.href, change.newHref);
    }
    std::swap(change.field, change.oldField);
    std::swap(change.oldValue, change.newValue);
    std::swap(change.oldIndex, change.newIndex);
    return change;
}

// The changes in a fixed order, without what belongs to the direction: the class, the name that is
// shown, and the link of an entry, which is the old one.
std::vector<std::string> lines(const std::vector<Change>& changes) {
    std::vector<std::string> lines;
    for (const Change& change : changes) {
        const bool isEntry = change.id == ChangeId::LookupChanged;
        const json::object line{{"id", toWord(change.id)},
                                {"section", change.section},
                                {"href", isEntry ? "" : change.href},
                                {"newHref", change.newHref},
                                {"field", change.field},
                                {"oldField", change.oldField},
                                {"old", change.oldValue},
                                {"new", change.newValue},
                                {"oldIndex", change.oldIndex.value_or(0)},
                                {"newIndex", change.newIndex.value_or(0)},
                                {"certainty", change.certainty}};
        lines.push_back(json::serialize(line));
    }
    std::ranges::sort(lines);
    return lines;
}

class ProductPropertiesTest : public testing::Test {
protected:
    // Calls a function with many pairs of random products.
    template <class Check>
    static void forRandomPairs(Check check) {
        for (unsigned seed = 0; seed < kTries && !HasFailure(); ++seed) {
            SCOPED_TRACE(seed);
            std::mt19937 random(seed);
            const RandomProduct oldProduct(random);
            const RandomProduct newProduct(random);
            check(oldProduct.records(), newProduct.records());
        }
    }
};

TEST_F(ProductPropertiesTest, ProductDoesNotDifferFromItself) {
    forRandomPairs([](const ProductRecords& records, const ProductRecords&) {
        EXPECT_TRUE(compareProducts(u"P", records, records).changes.empty());
    });
}

TEST_F(ProductPropertiesTest, ChangesTurnTheOldProductIntoTheNewOne) {
    forRandomPairs([](const ProductRecords& olds, const ProductRecords& news) {
        const std::vector<Change> changes = compareProducts(u"P", olds, news).changes;
        EXPECT_EQ(comparable(applyChanges(asJson(olds), changes)), comparable(asJson(news)));
    });
}

TEST_F(ProductPropertiesTest, ChangesInTheOtherDirectionAreTheMirrorImage) {
    forRandomPairs([](const ProductRecords& olds, const ProductRecords& news) {
        std::vector<Change> changes = compareProducts(u"P", olds, news).changes;
        std::ranges::transform(changes, changes.begin(),
                               [](Change& change) { return mirrored(std::move(change)); });
        EXPECT_EQ(lines(changes), lines(compareProducts(u"P", news, olds).changes));
    });
}

TEST_F(ProductPropertiesTest, RemovedRecordsAreBreakingAndAddedOnesNotable) {
    forRandomPairs([](const ProductRecords& olds, const ProductRecords& news) {
        for (const Change& change : compareProducts(u"P", olds, news).changes) {
            if (!change.field.empty())
                continue;
            if (change.newValue.is_null()) {
                EXPECT_EQ(change.changeClass, ChangeClass::Breaking) << toWord(change.id);
            } else {
                EXPECT_EQ(change.changeClass, ChangeClass::Notable) << toWord(change.id);
            }
        }
    });
}

} // namespace
} // namespace refdoc_tests
