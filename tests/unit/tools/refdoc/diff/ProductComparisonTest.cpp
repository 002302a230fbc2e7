#include "tools/refdoc/diff/compare/ProductComparison.hpp"

#include "tests/support/Records.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc::diff;
using namespace reference::property;
using docparser_tests::makeRefItem;
using docparser_tests::RefItemFields;
using reference::docparser::DocResource;
using testing::ElementsAre;
using testing::IsEmpty;

using LookupSection = ProductRecords::LookupSection;

HeaderInfo header(const std::u16string& productName = u"Orchard") {
    return {u"s", u"1", productName, u"b", u"orchard", u"help", u"Orchard"};
}

// A product with one section of full records.
ProductRecords productWith(std::vector<RefItemFields> items) {
    ProductRecords records{.exists = true};
    DocResource<RefItem> section{header(), {}};
    for (RefItemFields& fields : items) {
        const std::u16string href = fields.href;
        section.items[href].push_back(makeRefItem(std::move(fields)));
    }
    records.resources.emplace(u"orchard", std::move(section));
    return records;
}

LookupSection index(const std::vector<RefItemLookup>& entries) {
    LookupSection section{header(), {}};
    for (const RefItemLookup& entry : entries)
        section.items[entry.getName()].push_back(entry);
    return section;
}

RefItemLookup entry(const std::u16string& name, const std::u16string& href,
                    const std::u16string& purpose = u"Join", bool isDeprecated = false) {
    return {name, RefEntityType::Function, purpose, isDeprecated, href, FunctionType::Function};
}

RefEntity function(const std::u16string& name) {
    return {RefEntityType::Function, name, FunctionType::Function};
}

Input input(const std::u16string& name, const std::u16string& defaultValue = u"",
            std::vector<std::u16string> values = {}, const std::u16string& anchor = u"x") {
    return {ObjectInfo(name, u"", std::move(values), u"graft.html#" + anchor), SyntaxType::Function,
            defaultValue, false};
}

RefItemFields graft() {
    return {
        .href = u"graft.html", .refEntities = {function(u"graft")}, .refPurpose = u"Join trees"};
}

// "class id link field": the change without its values.
std::vector<std::string> changes(const ProductRecords& olds, const ProductRecords& news) {
    std::vector<std::string> lines;
    for (const Change& change : compareProducts(u"Orchard", olds, news).changes) {
        std::string line(toWord(change.changeClass));
        line.append(" ").append(toWord(change.id));
        for (const std::string& part : {change.href, change.field}) {
            if (!part.empty())
                line += " " + part;
        }
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> itemChanges(RefItemFields oldItem, RefItemFields newItem) {
    return changes(productWith({std::move(oldItem)}), productWith({std::move(newItem)}));
}

// What the change of one field of graft() is reported as.
struct FieldCase {
    std::string name;
    std::function<void(RefItemFields&)> oldFields;
    std::function<void(RefItemFields&)> newFields;
    std::vector<std::string> expected; ///< class and field
};

std::vector<FieldCase> fieldCases() {
    const auto none = [](RefItemFields&) {};
    const auto inputs = [](std::vector<Input> list) {
        return [list](RefItemFields& item) { item.inputs = list; };
    };
    const auto syntaxes = [](std::vector<std::u16string> list) {
        return [list](RefItemFields& item) {
            item.syntaxGroups = {SyntaxGroup(u"Join", SyntaxType::Function, list)};
        };
    };
    const auto groups = [](std::vector<InputGroup> list) {
        return [list](RefItemFields& item) { item.inputGroups = list; };
    };
    const ObjectInfo stock(u"stock", u"", {}, u"graft.html#stock");
    return {
        {"purpose", none, [](auto& item) { item.refPurpose = u"Join"; }, {"textual /refPurpose"}},
        {"deprecation",
         none,
         [](auto& item) { item.deprecationStatus = DeprecationStatus::Deprecated; },
         {"notable /deprecationStatus"}},
        {"removed syntax",
         syntaxes({u"a", u"b"}),
         syntaxes({u"b"}),
         {"breaking /syntaxGroups/0/syntaxes/0"}},
        {"added syntax",
         syntaxes({u"b"}),
         syntaxes({u"a", u"b"}),
         {"notable /syntaxGroups/0/syntaxes/0"}},
        {"removed syntax group", syntaxes({u"a"}), none, {"breaking /syntaxGroups/0"}},
        {"order of syntaxes",
         syntaxes({u"a", u"b"}),
         syntaxes({u"b", u"a"}),
         {"textual /syntaxGroups/0/syntaxes"}},
        {"removed input",
         inputs({input(u"x"), input(u"y")}),
         inputs({input(u"y")}),
         {"breaking /inputs/0"}},
        {"added input",
         inputs({input(u"y")}),
         inputs({input(u"x"), input(u"y")}),
         {"notable /inputs/0"}},
        {"renamed input",
         inputs({input(u"x")}),
         inputs({input(u"y")}),
         {"breaking /inputs/0", "notable /inputs/0"}},
        {"changed default",
         inputs({input(u"x", u"1")}),
         inputs({input(u"x", u"2")}),
         {"breaking /inputs/0/defaultValue"}},
        {"removed default",
         inputs({input(u"x", u"1")}),
         inputs({input(u"x")}),
         {"breaking /inputs/0/defaultValue"}},
        {"added default",
         inputs({input(u"x")}),
         inputs({input(u"x", u"1")}),
         {"notable /inputs/0/defaultValue"}},
        {"removed value",
         inputs({input(u"x", u"", {u"a", u"b"})}),
         inputs({input(u"x", u"", {u"b"})}),
         {"breaking /inputs/0/objectInfo/values/0"}},
        {"added value",
         inputs({input(u"x", u"", {u"a"})}),
         inputs({input(u"x", u"", {u"a", u"b"})}),
         {"notable /inputs/0/objectInfo/values/1"}},
        {"changed anchor",
         inputs({input(u"x", u"", {}, u"a")}),
         inputs({input(u"x", u"", {}, u"b")}),
         {"breaking /inputs/0/objectInfo/href"}},
        {"added anchor",
         inputs({input(u"x", u"", {}, u"")}),
         inputs({input(u"x", u"", {}, u"b")}),
         {"notable /inputs/0/objectInfo/href"}},
        {"one of two equal inputs",
         inputs({input(u"x"), input(u"x")}),
         inputs({input(u"x")}),
         {"breaking /inputs/1"}},
        {"title of a group",
         groups({InputGroup(u"Options", {input(u"x")})}),
         groups({InputGroup(u"Optionen", {input(u"x")})}),
         {"textual /inputGroups/0/title"}},
        {"input that moved to a group",
         inputs({input(u"x")}),
         groups({InputGroup(u"Options", {input(u"x")})}),
         {"textual /inputs/0", "notable /inputGroups/0"}},
        {"input that lost a value on its way to a group",
         inputs({input(u"x", u"", {u"a"})}),
         groups({InputGroup(u"Options", {input(u"x")})}),
         {"breaking /inputs/0", "notable /inputGroups/0"}},
        {"removed output",
         [&](auto& item) { item.outputs = {Output(stock, SyntaxType::Function)}; },
         none,
         {"breaking /outputs/0"}},
        {"removed parameter",
         [&](auto& item) { item.parameters = {Parameter(stock, u"")}; },
         none,
         {"breaking /parameters/0"}},
        {"removed property",
         [&](auto& item) {
             item.classPropertyGroups = {ClassPropertyGroup(u"", {ClassProperty(stock, u"")})};
         },
         none,
         {"breaking /classPropertyGroups/0"}},
        {"removed link",
         [](auto& item) { item.seeAlso = {SeeAlso(u"a.html", u"a")}; },
         none,
         {"textual /seeAlso/0"}},
        {"text of a link",
         [](auto& item) { item.seeAlso = {SeeAlso(u"a.html", u"a")}; },
         [](auto& item) { item.seeAlso = {SeeAlso(u"a.html", u"b")}; },
         {"textual /seeAlso/0/name"}},
        {"target of a link",
         [](auto& item) { item.seeAlso = {SeeAlso(u"a.html", u"a")}; },
         [](auto& item) { item.seeAlso = {SeeAlso(u"b.html", u"a")}; },
         {"textual /seeAlso/0/url"}},
        {"added example",
         none,
         [](auto& item) { item.examples = {Example(u"a", u"", u"")}; },
         {"notable /examples/0"}},
    };
}

TEST(ProductComparisonTest, FieldsHaveTheirClasses) {
    for (const FieldCase& each : fieldCases()) {
        RefItemFields oldItem = graft();
        RefItemFields newItem = graft();
        each.oldFields(oldItem);
        each.newFields(newItem);
        std::vector<std::string> expected;
        for (const std::string& line : each.expected) {
            const std::size_t space = line.find(' ');
            expected.push_back(line.substr(0, space) + " item-changed graft.html" +
                               line.substr(space));
        }
        EXPECT_EQ(itemChanges(std::move(oldItem), std::move(newItem)), expected) << each.name;
    }
}

TEST(ProductComparisonTest, ProductIsAddedOrRemovedAsAWhole) {
    const ProductRecords product = productWith({graft()});
    EXPECT_THAT(changes({}, product), ElementsAre("notable product-added"));
    EXPECT_THAT(changes(product, {}), ElementsAre("breaking product-removed"));
}

TEST(ProductComparisonTest, SectionIsAddedOrRemovedAsAWhole) {
    const ProductRecords less = productWith({graft()});
    ProductRecords more = less;
    more.resources.emplace(u"kit", DocResource<RefItem>{header(), {}});
    EXPECT_THAT(changes(less, more), ElementsAre("notable section-added"));
    EXPECT_THAT(changes(more, less), ElementsAre("breaking section-removed"));
}

TEST(ProductComparisonTest, HeadersOfBothPartsChangeOnce) {
    ProductRecords olds = productWith({graft()});
    ProductRecords news = olds;
    const LookupSection oldIndex = index({});
    LookupSection newIndex = index({});
    olds.lookup.emplace(u"orchard", &oldIndex);
    news.lookup.emplace(u"orchard", &newIndex);
    news.resources.at(u"orchard").header = header(u"Orchards");
    newIndex.header = header(u"Orchards");
    EXPECT_THAT(changes(olds, news), ElementsAre("textual section-changed /productName"));
}

TEST(ProductComparisonTest, ItemsAreAddedAndRemoved) {
    RefItemFields prune{.href = u"prune.html", .refPurpose = u"Cut"};
    EXPECT_THAT(changes(productWith({graft()}), productWith({graft(), prune})),
                ElementsAre("notable item-added prune.html"));
    EXPECT_THAT(changes(productWith({graft(), prune}), productWith({graft()})),
                ElementsAre("breaking item-removed prune.html"));
}

TEST(ProductComparisonTest, MovedItemTakesItsAnchorsAlong) {
    RefItemFields oldItem = graft();
    oldItem.inputs = {input(u"x", u"1")};
    RefItemFields newItem = graft();
    newItem.href = u"join.html";
    newItem.inputs = {
        Input(ObjectInfo(u"x", u"", {}, u"join.html#x"), SyntaxType::Function, u"2", false)};
    const std::vector<Change> found =
        compareProducts(u"Orchard", productWith({oldItem}), productWith({newItem})).changes;
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].id, ChangeId::ItemMoved);
    EXPECT_EQ(found[0].changeClass, ChangeClass::Breaking);
    EXPECT_EQ(found[0].href, "graft.html");
    EXPECT_EQ(found[0].newHref, "join.html");
    EXPECT_EQ(found[0].certainty, 75); // three of four words: Join, trees, x
    EXPECT_EQ(found[1].id, ChangeId::ItemChanged);
    EXPECT_EQ(found[1].field, "/inputs/0/defaultValue");
    EXPECT_EQ(found[1].newHref, "join.html");
}

TEST(ProductComparisonTest, ItemMovesOnlyWithItsNames) {
    RefItemFields other = graft();
    other.href = u"join.html";
    other.refEntities = {function(u"join")};
    EXPECT_THAT(itemChanges(graft(), other),
                ElementsAre("breaking item-removed graft.html", "notable item-added join.html"));
}

TEST(ProductComparisonTest, ItemWithTheSameNameAndOtherTextsHasNotMoved) {
    RefItemFields other = graft();
    other.href = u"join.html";
    other.refPurpose = u"Something that has nothing in common with it";
    EXPECT_THAT(itemChanges(graft(), other),
                ElementsAre("breaking item-removed graft.html", "notable item-added join.html"));
}

TEST(ProductComparisonTest, RecordsOfOneLinkHaveIndices) {
    RefItemFields second = graft();
    second.refEntities = {function(u"bud")};
    RefItemFields changed = second;
    changed.refPurpose = u"Bud";
    const std::vector<Change> found =
        compareProducts(u"Orchard", productWith({graft(), second}), productWith({changed})).changes;
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].id, ChangeId::ItemChanged);
    EXPECT_EQ(found[0].oldIndex, 1U);
    EXPECT_EQ(found[0].newIndex, 0U);
    EXPECT_EQ(found[1].id, ChangeId::ItemRemoved);
    EXPECT_EQ(found[1].oldIndex, 0U);
    EXPECT_EQ(found[1].newIndex, std::nullopt);
}

TEST(ProductComparisonTest, EntriesAreAddedRemovedAndChanged) {
    const LookupSection oldIndex = index(
        {entry(u"bud", u"bud.html"), entry(u"cut", u"a.html"), entry(u"graft", u"graft.html")});
    const LookupSection newIndex =
        index({entry(u"cut", u"b.html"), entry(u"graft", u"graft.html", u"Join trees", true),
               entry(u"prune", u"prune.html")});
    EXPECT_THAT(changes({.exists = true, .lookup = {{u"orchard", &oldIndex}}},
                        {.exists = true, .lookup = {{u"orchard", &newIndex}}}),
                ElementsAre("breaking lookup-removed bud.html",
                            "textual lookup-changed a.html /href",
                            "textual lookup-changed graft.html /refPurpose",
                            "notable lookup-changed graft.html /deprecated",
                            "notable lookup-added prune.html"));
}

TEST(ProductComparisonTest, DamagedResourcesAreIgnoredOnBothSides) {
    const LookupSection oldIndex = index({});
    const LookupSection newIndex = index({entry(u"graft", u"graft.html")});
    ProductRecords olds = productWith({graft()});
    olds.lookup.emplace(u"orchard", &oldIndex);
    const ProductRecords news{
        .exists = true, .lookup = {{u"orchard", &newIndex}}, .areResourcesDamaged = true};
    EXPECT_THAT(changes(olds, news), ElementsAre("notable lookup-added graft.html"));
    EXPECT_THAT(changes(news, olds), ElementsAre("breaking lookup-removed graft.html"));
}

TEST(ProductComparisonTest, DamagedIndexIsIgnoredOnBothSides) {
    const LookupSection entries = index({entry(u"graft", u"graft.html")});
    const ProductRecords olds{.exists = true, .lookup = {{u"orchard", &entries}}};
    EXPECT_THAT(changes(olds, {.exists = true, .isLookupDamaged = true}), IsEmpty());
}

} // namespace
} // namespace refdoc_tests
