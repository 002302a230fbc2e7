#include "tests/support/Records.hpp"
#include "tools/refdoc/translations/comparison/Comparisons.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>
#include <string>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc::translations;
using namespace reference::property;
using docparser_tests::makeRefItem;
using docparser_tests::RefItemFields;
using reference::docparser::ResourceMap;
using testing::ElementsAre;
using testing::IsEmpty;

using Resources = ResourceMap<RefItem>;

Resources resourcesOf(const std::vector<RefItem>& items, const std::u16string& section = u"s") {
    Resources resources;
    const HeaderInfo header(u"", u"", u"", u"", u"", u"", u"");
    auto& target = resources.try_emplace(section, header).first->second;
    for (const RefItem& item : items)
        target.items[item.getHref()].push_back(item);
    return resources;
}

RefItem page(const std::u16string& href, const std::u16string& purpose,
             const std::u16string& name = {}) {
    RefItemFields fields{.href = href, .refPurpose = purpose};
    if (!name.empty())
        fields.refEntities = {RefEntity(RefEntityType::Function, name, FunctionType::Function)};
    return makeRefItem(std::move(fields));
}

Entry entry(Defect defect, const std::u16string& href) {
    return {.defect = defect, .section = u"s", .href = href};
}

TEST(ComparisonTest, TranslatedItemsHaveNoEntry) {
    EXPECT_EQ(compareItems(resourcesOf({page(u"a", u"Join"), page(u"b", u"Cut")}),
                           resourcesOf({page(u"a", u"Verbinden"), page(u"b", u"Schneiden")})),
              (Comparison{.english = 2, .translated = 2}));
}

TEST(ComparisonTest, WhatOnlyOneLanguageHasIsMissingOrOrphaned) {
    EXPECT_EQ(compareItems(resourcesOf({page(u"a", u"Join"), page(u"far/away.html", u"Cut")}),
                           resourcesOf({page(u"a", u"Verbinden"), page(u"z", u"Alt")})),
              (Comparison{.english = 2,
                          .translated = 1,
                          .entries = {entry(Defect::Missing, u"far/away.html"),
                                      entry(Defect::Orphaned, u"z")}}));
}

TEST(ComparisonTest, ItemsAreComparedBySection) {
    const Comparison comparison = compareItems(resourcesOf({page(u"a", u"Join")}, u"s"),
                                               resourcesOf({page(u"a", u"Verbinden")}, u"t"));
    EXPECT_EQ(comparison.translated, 0U);
    EXPECT_EQ(comparison.count(Defect::Missing), 1U);
    EXPECT_EQ(comparison.count(Defect::Orphaned), 1U);
}

TEST(ComparisonTest, TranslationThatEqualsEnglishIsIdenticalAndNothingElse) {
    const Resources english = resourcesOf({page(u"a", u"Join"), page(u"b", u"Cut")});
    EXPECT_EQ(
        compareItems(english, english),
        (Comparison{.english = 2,
                    .entries = {entry(Defect::Identical, u"a"), entry(Defect::Identical, u"b")}}));
}

TEST(ComparisonTest, OneTextOfItsOwnMakesAnItemTranslated) {
    const auto info = [](const std::u16string& purpose) {
        return ObjectInfo(u"x", purpose, {}, u"");
    };
    const auto itemOf = [&](const std::u16string& purpose) {
        return makeRefItem(
            {.href = u"a", .refPurpose = u"Join", .parameters = {Parameter(info(purpose), u"")}});
    };
    EXPECT_EQ(compareItems(resourcesOf({itemOf(u"A tree")}), resourcesOf({itemOf(u"Ein Baum")})),
              (Comparison{.english = 1, .translated = 1}));
}

TEST(ComparisonTest, TextsThatAnotherRecordOfTheItemHasAreNoTranslation) {
    const Resources english = resourcesOf({page(u"a", u"Join"), page(u"a", u"Cut")});
    const Resources translation = resourcesOf({page(u"a", u"Cut")});
    EXPECT_EQ(compareItems(english, translation).count(Defect::Identical), 1U);
}

TEST(ComparisonTest, ItemWithoutTextHasNothingToTranslate) {
    const Resources english = resourcesOf({page(u"a", u"")});
    EXPECT_EQ(compareItems(english, english), (Comparison{.english = 1, .translated = 1}));
}

// The fields that differ if English has the parts and the translation has not.
std::vector<std::string_view> fieldsThatDiffer(RefItemFields english) {
    english.href = u"a";
    english.refPurpose = u"Join";
    const Comparison comparison = compareItems(resourcesOf({makeRefItem(std::move(english))}),
                                               resourcesOf({page(u"a", u"Verbinden")}));
    EXPECT_EQ(comparison.translated, 1U);
    return comparison.entries.empty() ? std::vector<std::string_view>()
                                      : comparison.entries.front().fields;
}

TEST(ComparisonTest, ItemWithOtherPartsIsOutOfStep) {
    const ObjectInfo info(u"x", u"", {}, u"");
    const Input input(info, SyntaxType::Function, u"", false);
    EXPECT_THAT(
        fieldsThatDiffer({.syntaxGroups = {SyntaxGroup(u"", SyntaxType::Function, {u"a(b)"})}}),
        ElementsAre("syntaxGroups"));
    EXPECT_THAT(fieldsThatDiffer({.inputs = {input}}), ElementsAre("inputs"));
    EXPECT_THAT(fieldsThatDiffer({.inputGroups = {InputGroup(u"", {input})}}),
                ElementsAre("inputGroups"));
    EXPECT_THAT(fieldsThatDiffer({.outputs = {Output(info, SyntaxType::Function)}}),
                ElementsAre("outputs"));
    EXPECT_THAT(fieldsThatDiffer(
                    {.classPropertyGroups = {ClassPropertyGroup(u"", {ClassProperty(info, u"")})}}),
                ElementsAre("classPropertyGroups"));
    EXPECT_THAT(fieldsThatDiffer({.parameters = {Parameter(info, u"")}}),
                ElementsAre("parameters"));
    EXPECT_THAT(fieldsThatDiffer({.inputs = {input}, .parameters = {Parameter(info, u"")}}),
                ElementsAre("inputs", "parameters"));
    EXPECT_THAT(fieldsThatDiffer({.introduced = u"1.0", .seeAlso = {SeeAlso(u"b", u"B")}}),
                IsEmpty());
}

// Whether an item with the first input in English and the second one in the translation is out of
// step.
bool isOutOfStep(const Input& english, const Input& translation) {
    const auto itemOf = [](const Input& input, const std::u16string& purpose) {
        return makeRefItem({.href = u"a", .refPurpose = purpose, .inputs = {input}});
    };
    return compareItems(resourcesOf({itemOf(english, u"Join")}),
                        resourcesOf({itemOf(translation, u"Verbinden")}))
               .count(Defect::OutOfStep) == 1;
}

TEST(ComparisonTest, InputsDifferInNameAndTypeButNotInTexts) {
    const auto input = [](const std::u16string& name, const std::u16string& text,
                          SyntaxType::Value type, bool isNameValuePair) {
        return Input(ObjectInfo(name, text, {text}, u"a#" + text), type, text, isNameValuePair);
    };
    const Input english = input(u"x", u"tree", SyntaxType::Function, false);
    EXPECT_FALSE(isOutOfStep(english, input(u"x", u"Baum", SyntaxType::Function, false)));
    EXPECT_TRUE(isOutOfStep(english, input(u"y", u"Baum", SyntaxType::Function, false)));
    EXPECT_TRUE(isOutOfStep(english, input(u"x", u"Baum", SyntaxType::Command, false)));
    EXPECT_TRUE(isOutOfStep(english, input(u"x", u"Baum", SyntaxType::Function, true)));
}

TEST(ComparisonTest, PartsOfASecondRecordAreCompared) {
    const RefItem second =
        makeRefItem({.href = u"a",
                     .refPurpose = u"Cut",
                     .outputs = {Output(ObjectInfo(u"x", u"", {}, u""), SyntaxType::Function)}});
    const Comparison comparison = compareItems(resourcesOf({page(u"a", u"Join"), second}),
                                               resourcesOf({page(u"a", u"Verbinden")}));
    ASSERT_EQ(comparison.entries.size(), 1U);
    EXPECT_THAT(comparison.entries.front().fields, ElementsAre("outputs"));
}

// Returns the likely new href of the only orphaned page.
std::u16string newHrefOf(const RefItem& orphaned, const std::vector<RefItem>& english) {
    for (const Entry& found : compareItems(resourcesOf(english), resourcesOf({orphaned})).entries) {
        if (found.defect == Defect::Orphaned)
            return found.replacement ? found.replacement->href : u"none";
    }
    return u"not orphaned";
}

TEST(ComparisonTest, RenamedPageDocumentsTheSameNames) {
    EXPECT_EQ(newHrefOf(page(u"alt.html", u"Alt", u"graft"), {page(u"alt2.html", u"Old", u"prune"),
                                                              page(u"new.html", u"New", u"graft")}),
              u"new.html");
}

TEST(ComparisonTest, FileNameDecidesBetweenPagesOfTheSameNames) {
    EXPECT_EQ(newHrefOf(page(u"old/b.html", u"Alt", u"graft"),
                        {page(u"new/a.html", u"A", u"graft"), page(u"new/b.html", u"B", u"graft")}),
              u"new/b.html");
}

TEST(ComparisonTest, RenamedPageHasTheSameFileName) {
    EXPECT_EQ(newHrefOf(page(u"some/old/folder/graft.html", u"Alt"),
                        {page(u"ref/graft.html", u"New"), page(u"ref/prune.html", u"Other")}),
              u"ref/graft.html");
    EXPECT_EQ(newHrefOf(page(u"some/old/folder/index.html", u"Alt"),
                        {page(u"a/index.html", u"A"), page(u"b/index.html", u"B")}),
              u"none");
}

TEST(ComparisonTest, RenamedPageHasANearHref) {
    EXPECT_EQ(newHrefOf(page(u"ref/graft.html", u"Alt"),
                        {page(u"ref/grafts.html", u"New"), page(u"ref/prune.html", u"Other")}),
              u"ref/grafts.html");
}

TEST(ComparisonTest, TranslatedPageIsNoNewPage) {
    const Comparison comparison = compareItems(
        resourcesOf({page(u"a.html", u"Join", u"graft")}),
        resourcesOf({page(u"a.html", u"Verbinden", u"graft"), page(u"b.html", u"Alt", u"graft")}));
    EXPECT_THAT(comparison.entries, ElementsAre(entry(Defect::Orphaned, u"b.html")));
}

// Lookup records by key; the object owns them.
class Lookups {
public:
    Lookups& add(const std::u16string& name, const std::u16string& href,
                 const std::u16string& purpose, bool isDeprecated = false,
                 RefEntityType::Value type = RefEntityType::Function,
                 FunctionType::Value functionType = FunctionType::Function) {
        const auto& record =
            records_.emplace_back(name, type, purpose, isDeprecated, href, functionType);
        byKey_[{u"s", record.getName(), record.getHref()}] = &record;
        return *this;
    }

    const LookupRecords& byKey() const { return byKey_; }

private:
    std::list<RefItemLookup> records_;
    LookupRecords byKey_;
};

Entry lookupEntry(Defect defect, const std::u16string& name, const std::u16string& href) {
    return {.defect = defect, .section = u"s", .name = name, .href = href};
}

TEST(ComparisonTest, LookupRecordsAreComparedByNameAndHref) {
    Lookups english;
    english.add(u"graft", u"a", u"Join").add(u"graft", u"b", u"Join").add(u"old", u"c", u"Cut");
    Lookups translation;
    translation.add(u"graft", u"a", u"Verbinden")
        .add(u"graft", u"b", u"Join")
        .add(u"new", u"c", u"Schneiden");
    Entry orphaned = lookupEntry(Defect::Orphaned, u"new", u"c");
    orphaned.replacement = {u"old", u"c"};
    EXPECT_EQ(compareLookups(english.byKey(), translation.byKey(), {}),
              (Comparison{.english = 3,
                          .translated = 1,
                          .entries = {lookupEntry(Defect::Missing, u"old", u"c"), orphaned,
                                      lookupEntry(Defect::Identical, u"graft", u"b")}}));
}

TEST(ComparisonTest, LookupRecordOfAnotherTypeIsOutOfStep) {
    Lookups english;
    english.add(u"graft", u"a", u"Join", /*isDeprecated=*/true);
    Lookups translation;
    translation.add(u"graft", u"a", u"Verbinden", /*isDeprecated=*/false, RefEntityType::Method,
                    FunctionType::Constructor);
    Entry expected = lookupEntry(Defect::OutOfStep, u"graft", u"a");
    expected.fields = {"entityType", "deprecated", "functionType"};
    EXPECT_EQ(compareLookups(english.byKey(), translation.byKey(), {}),
              (Comparison{.english = 1, .translated = 1, .entries = {expected}}));
}

TEST(ComparisonTest, DroppedLookupRecordIsNotMissing) {
    Lookups english;
    english.add(u"graft", u"a", u"Join");
    EXPECT_EQ(
        compareLookups(english.byKey(), {}, {{u"s", u"graft", u"a"}}),
        (Comparison{.english = 1, .entries = {lookupEntry(Defect::Dropped, u"graft", u"a")}}));
}

TEST(ComparisonTest, ShareIsRoundedDown) {
    EXPECT_EQ((Counts{.english = 3, .translated = 2}.share()), 666U);
    EXPECT_EQ((Counts{.english = 100000, .translated = 99999}.share()), 999U);
    EXPECT_EQ(Counts().share(), 1000U);
    EXPECT_TRUE((Counts{.english = 100000, .translated = 94999}.isBelow(95)));
    EXPECT_FALSE((Counts{.english = 100, .translated = 95}.isBelow(95)));
}

// 20,000 orphaned and as many missing pages; comparing each pair would take minutes.
TEST(ComparisonTest, ManyRenamedPagesAreComparedQuickly) {
    std::vector<RefItem> english;
    std::vector<RefItem> translation;
    for (int number = 0; number < 20'000; ++number) {
        const std::string text = std::to_string(number);
        const std::u16string digits(text.begin(), text.end());
        english.push_back(page(u"new/" + digits + u".html", u"New", u"n" + digits));
        translation.push_back(page(u"old/x" + digits + u".html", u"Alt", u"n" + digits));
    }
    const Comparison comparison = compareItems(resourcesOf(english), resourcesOf(translation));
    EXPECT_EQ(comparison.count(Defect::Orphaned), 20'000U);
    for (const Entry& found : comparison.entries) {
        if (found.defect == Defect::Orphaned) {
            EXPECT_EQ(found.replacement->href, u"new/" + found.href.substr(5));
        }
    }
}

} // namespace
} // namespace refdoc_tests
