#include "tests/system/SystemTest.hpp"

#include <string>
#include <vector>

namespace docparser_tests {
namespace {

using testing::ElementsAre;
using testing::Pair;

// Lookup files of one key, so that their sections meet in one entry.
class LookupMergeTest : public SystemTest {
protected:
    // The one section that is left of all files, none of which is installed.
    static DocResource<RefItemLookup> merged() {
        const Lookups lookups = DocResourceParser::getResourceLookupFiles();
        EXPECT_TRUE(lookups.installed.empty());
        EXPECT_EQ(lookups.notInstalled.size(), 1U);
        return lookups.notInstalled.at(u"orchard");
    }
    // Whether the folder lists a product before the others, and so lets it be read first.
    static bool isFirst(const std::u16string& name) {
        const auto products = DocResourceParser::getAllProducts(
            DocResourceParser::getReferenceRoots()->lookupFolder, {}, u"_en");
        return products.jsonProducts.front().getName() == name;
    }
};

ResourceText orchard(const std::vector<boost::json::object>& items) {
    ResourceText text("orchard");
    for (const boost::json::object& element : items)
        text.add(element);
    return text;
}

TEST_F(LookupMergeTest, NamesOfBothFilesAppear) {
    addLookup("A.json", orchard({lookupItem("graft", "g.html", "Join")}).str());
    addLookup("B.json", orchard({lookupItem("prune", "p.html", "Cut")}).str());
    EXPECT_EQ(merged(), lookupSection(u"orchard", isFirst(u"A") ? u"A" : u"B",
                                      {lookupRecord(u"graft", u"g.html", u"Join"),
                                       lookupRecord(u"prune", u"p.html", u"Cut")}));
}

TEST_F(LookupMergeTest, OfANameWithEqualCountsTheFirstProductsRecordsStay) {
    addLookup("A.json", orchard({lookupItem("graft", "a.html", "A")}).str());
    addLookup("B.json", orchard({lookupItem("graft", "b.html", "B")}).str());
    const auto expected =
        isFirst(u"A") ? lookupSection(u"orchard", u"A", {lookupRecord(u"graft", u"a.html", u"A")})
                      : lookupSection(u"orchard", u"B", {lookupRecord(u"graft", u"b.html", u"B")});
    EXPECT_EQ(merged(), expected);
}

TEST_F(LookupMergeTest, TheFirstProductsHeaderStays) {
    addLookup("A.json", orchard({}).set("productName", "from A").str());
    addLookup("B.json", orchard({}).set("productName", "from B").str());
    EXPECT_EQ(merged().header.getProductName(), isFirst(u"A") ? u"from A" : u"from B");
}

TEST_F(LookupMergeTest, ALongerListAddsTheHrefsThatAreNew) {
    addLookup("A.json", orchard({lookupItem("graft", "a.html", "A")}).str());
    addLookup("B.json",
              orchard({lookupItem("graft", "b.html", "B"), lookupItem("graft", "a.html", "other"),
                       lookupItem("graft", "b.html", "again"), lookupItem("graft", "c.html", "C")})
                  .str());
    const RefItemLookup a = lookupRecord(u"graft", u"a.html", u"A");
    const RefItemLookup b = lookupRecord(u"graft", u"b.html", u"B");
    const RefItemLookup c = lookupRecord(u"graft", u"c.html", u"C");
    const RefItemLookup otherA = lookupRecord(u"graft", u"a.html", u"other");
    const RefItemLookup againB = lookupRecord(u"graft", u"b.html", u"again");
    if (isFirst(u"A"))
        EXPECT_EQ(merged(), lookupSection(u"orchard", u"A", {a, b, c}));
    else
        EXPECT_EQ(merged(), lookupSection(u"orchard", u"B", {b, otherA, againB, c}));
}

TEST_F(LookupMergeTest, ALongerListOfKnownHrefsAddsNothing) {
    addLookup("A.json", orchard({lookupItem("graft", "a.html", "A")}).str());
    addLookup("B.json",
              orchard({lookupItem("graft", "a.html", "B"), lookupItem("graft", "a.html", "again")})
                  .str());
    const auto items = merged().items;
    if (isFirst(u"A"))
        EXPECT_THAT(items.at(u"graft"), ElementsAre(lookupRecord(u"graft", u"a.html", u"A")));
    else
        EXPECT_THAT(items.at(u"graft"), ElementsAre(lookupRecord(u"graft", u"a.html", u"B"),
                                                    lookupRecord(u"graft", u"a.html", u"again")));
}

TEST_F(LookupMergeTest, InstalledAndOtherSectionsOfOneKeyMergeWhereTheyStand) {
    host->install({"orchard"});
    addLookup("A.json", orchard({lookupItem("graft", "g.html", "Join")}).str());
    addLookup("B.json", orchard({lookupItem("prune", "p.html", "Cut")}).str());
    const Lookups lookups = DocResourceParser::getResourceLookupFiles();
    EXPECT_TRUE(lookups.notInstalled.empty());
    ASSERT_EQ(lookups.installed.size(), 1U);
    EXPECT_THAT(
        lookups.installed.at(u"orchard").items,
        ElementsAre(Pair(u"graft", ElementsAre(lookupRecord(u"graft", u"g.html", u"Join"))),
                    Pair(u"prune", ElementsAre(lookupRecord(u"prune", u"p.html", u"Cut")))));
}

// --- a translation beside its English product; the outcome does not hang on the order

class LookupTranslationTest : public LookupMergeTest {
protected:
    LookupTranslationTest() { setLanguage(u"de"); }

    void addBoth(const ResourceText& english, const ResourceText& german) const {
        addLookup("Orchard.json", english.str());
        addLookup("Orchard_de.json", german.str());
    }
};

TEST_F(LookupTranslationTest, HeaderAndRecordsAreTheTranslations) {
    addBoth(orchard({lookupItem("graft", "g.html", "Join")}).set("productName", "Orchard"),
            orchard({lookupItem("graft", "g.html", "Veredeln")}).set("productName", "Obstgarten"));
    const auto entry = merged();
    EXPECT_EQ(entry.header, HeaderInfo(u"", u"", u"Obstgarten", u"orchard code", u"orchard",
                                       u"orchard/help", u"Orchard"));
    EXPECT_THAT(
        entry.items,
        ElementsAre(Pair(u"graft", ElementsAre(lookupRecord(u"graft", u"g.html", u"Veredeln")))));
}

TEST_F(LookupTranslationTest, EnglishFillsTheNamesThatAreNotTranslated) {
    addBoth(orchard({lookupItem("graft", "g.html", "Join"), lookupItem("prune", "p.html", "Cut"),
                     lookupItem("prune", "q.html", "Cut too")}),
            orchard({lookupItem("graft", "g.html", "Veredeln"),
                     lookupItem("water", "w.html", "Giessen")}));
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"Orchard",
                                      {lookupRecord(u"graft", u"g.html", u"Veredeln"),
                                       lookupRecord(u"prune", u"p.html", u"Cut"),
                                       lookupRecord(u"prune", u"q.html", u"Cut too"),
                                       lookupRecord(u"water", u"w.html", u"Giessen")}));
}

TEST_F(LookupTranslationTest, EnglishAddsNewHrefsOnlyWhereItHasMoreRecords) {
    addBoth(orchard({lookupItem("graft", "g.html", "Join"), lookupItem("graft", "h.html", "Tie"),
                     lookupItem("prune", "p.html", "Cut")}),
            orchard({lookupItem("graft", "g.html", "Veredeln"),
                     lookupItem("prune", "q.html", "Schneiden")}));
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"Orchard",
                                      {lookupRecord(u"graft", u"g.html", u"Veredeln"),
                                       lookupRecord(u"graft", u"h.html", u"Tie"),
                                       lookupRecord(u"prune", u"q.html", u"Schneiden")}));
}

TEST_F(LookupTranslationTest, EnglishAddsNothingToALongerTranslation) {
    addBoth(orchard({lookupItem("graft", "e.html", "Join")}),
            orchard({lookupItem("graft", "g.html", "Veredeln"),
                     lookupItem("graft", "h.html", "Binden")}));
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"Orchard",
                                      {lookupRecord(u"graft", u"g.html", u"Veredeln"),
                                       lookupRecord(u"graft", u"h.html", u"Binden")}));
}

TEST_F(LookupTranslationTest, ADamagedTranslationLeavesEnglishAndADamagedEnglishTheTranslation) {
    const ResourceText english = orchard({lookupItem("graft", "g.html", "Join")});
    const ResourceText german = orchard({lookupItem("graft", "g.html", "Veredeln")});
    addBoth(english, german);
    addLookup("Orchard_de.json", "{");
    EXPECT_EQ(merged(),
              lookupSection(u"orchard", u"Orchard", {lookupRecord(u"graft", u"g.html", u"Join")}));
    addBoth(english, german);
    addLookup("Orchard.json", "{");
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"Orchard",
                                      {lookupRecord(u"graft", u"g.html", u"Veredeln")}));
}

TEST_F(LookupTranslationTest, SectionsOfPackagesMeetByBaseCode) {
    ResourceText english("orchard");
    english.addSupportPackage(ResourceText("ladder").add(lookupItem("climb", "c.html", "Go up")));
    ResourceText german("orchard");
    german.addSupportPackage(ResourceText("ladder").add(lookupItem("climb", "c.html", "Steigen")));
    addBoth(english, german);
    const Lookups expected = {
        {},
        {{u"orchard", lookupSection(u"orchard", u"Orchard", {})},
         {u"ladder code",
          lookupSection(u"ladder", u"Orchard", {lookupRecord(u"climb", u"c.html", u"Steigen")})}}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

} // namespace
} // namespace docparser_tests
