#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <string>
#include <vector>

namespace docparser_tests {
namespace {

struct LookupFile {
    std::string name;
    std::string text;
};

// Lookup files whose main sections have the same key and are merged. They are entries of one
// package, because entries are read in the order of the package. A folder has no order.
class LookupMergeTest : public SystemTest {
protected:
    void addPackage(const std::vector<LookupFile>& files) const {
        ZipBytes zip;
        for (const LookupFile& file : files)
            zip.entries.push_back({.name = file.name, .content = file.text});
        addLookup("Package.zip", zip.build());
    }

    // Returns the merged section and expects it to be the only one and not installed.
    static DocResource<RefItemLookup> merged() {
        const Lookups lookups = DocResourceParser::getResourceLookupFiles();
        EXPECT_TRUE(lookups.installed.empty());
        EXPECT_EQ(lookups.notInstalled.size(), 1U);
        return lookups.notInstalled.at(u"orchard");
    }
};

ResourceText orchard(const std::vector<boost::json::object>& items) {
    ResourceText text("orchard");
    for (const boost::json::object& element : items)
        text.add(element);
    return text;
}

TEST_F(LookupMergeTest, ResultHasTheNamesOfBothFiles) {
    addPackage({{"A.json", orchard({lookupItem("graft", "g.html", "Join")}).str()},
                {"B.json", orchard({lookupItem("prune", "p.html", "Cut")}).str()}});
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"A",
                                      {lookupRecord(u"graft", u"g.html", u"Join"),
                                       lookupRecord(u"prune", u"p.html", u"Cut")}));
}

TEST_F(LookupMergeTest, FirstFileKeepsItsRecordsIfTheCountsAreEqual) {
    addPackage({{"A.json", orchard({lookupItem("graft", "a.html", "A")}).str()},
                {"B.json", orchard({lookupItem("graft", "b.html", "B")}).str()}});
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"A", {lookupRecord(u"graft", u"a.html", u"A")}));
}

TEST_F(LookupMergeTest, FirstFileKeepsItsHeader) {
    addPackage({{"A.json", orchard({}).set("productName", "from A").str()},
                {"B.json", orchard({}).set("productName", "from B").str()}});
    EXPECT_EQ(merged().header,
              HeaderInfo(u"", u"", u"from A", u"orchard code", u"orchard", u"orchard/help", u"A"));
}

TEST_F(LookupMergeTest, LongerListAddsOnlyItsNewHrefs) {
    addPackage(
        {{"A.json", orchard({lookupItem("graft", "a.html", "A")}).str()},
         {"B.json",
          orchard({lookupItem("graft", "b.html", "B"), lookupItem("graft", "a.html", "other"),
                   lookupItem("graft", "b.html", "again"), lookupItem("graft", "c.html", "C")})
              .str()}});
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"A",
                                      {lookupRecord(u"graft", u"a.html", u"A"),
                                       lookupRecord(u"graft", u"b.html", u"B"),
                                       lookupRecord(u"graft", u"c.html", u"C")}));
}

TEST_F(LookupMergeTest, LongerListOfKnownHrefsAddsNothing) {
    addPackage({{"A.json", orchard({lookupItem("graft", "a.html", "A")}).str()},
                {"B.json", orchard({lookupItem("graft", "a.html", "B"),
                                    lookupItem("graft", "a.html", "again")})
                               .str()}});
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"A", {lookupRecord(u"graft", u"a.html", u"A")}));
}

TEST_F(LookupMergeTest, ShorterListAddsNothing) {
    addPackage({{"A.json", orchard({lookupItem("graft", "b.html", "B"),
                                    lookupItem("graft", "b.html", "again")})
                               .str()},
                {"B.json", orchard({lookupItem("graft", "a.html", "A")}).str()}});
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"A",
                                      {lookupRecord(u"graft", u"b.html", u"B"),
                                       lookupRecord(u"graft", u"b.html", u"again")}));
}

TEST_F(LookupMergeTest, MergesInstalledSectionsWithTheSameKey) {
    host->install({"orchard"});
    addPackage({{"A.json", orchard({lookupItem("graft", "g.html", "Join")}).str()},
                {"B.json", orchard({lookupItem("prune", "p.html", "Cut")}).str()}});
    const Lookups expected = {
        {{u"orchard", lookupSection(u"orchard", u"A",
                                    {lookupRecord(u"graft", u"g.html", u"Join"),
                                     lookupRecord(u"prune", u"p.html", u"Cut")})}},
        {}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

// How the two files of a product are stored.
enum class Storage { EnglishEntryFirst, GermanEntryFirst, PlainFiles };

// A translation and its English file. The result does not depend on which is read first.
class LookupTranslationTest : public LookupMergeTest, public testing::WithParamInterface<Storage> {
protected:
    LookupTranslationTest() { setLanguage(u"de"); }

    void addBoth(const std::string& english, const std::string& german) const {
        const LookupFile englishFile{"Orchard.json", english};
        const LookupFile germanFile{"Orchard_de.json", german};
        switch (GetParam()) {
        case Storage::EnglishEntryFirst: addPackage({englishFile, germanFile}); break;
        case Storage::GermanEntryFirst: addPackage({germanFile, englishFile}); break;
        case Storage::PlainFiles:
            addLookup(englishFile.name, english);
            addLookup(germanFile.name, german);
            break;
        }
    }
    void addBoth(const ResourceText& english, const ResourceText& german) const {
        addBoth(english.str(), german.str());
    }
};

INSTANTIATE_TEST_SUITE_P(, LookupTranslationTest,
                         testing::Values(Storage::EnglishEntryFirst, Storage::GermanEntryFirst,
                                         Storage::PlainFiles),
                         [](const auto& storage) {
                             switch (storage.param) {
                             case Storage::EnglishEntryFirst: return "EnglishEntryFirst";
                             case Storage::GermanEntryFirst: return "GermanEntryFirst";
                             case Storage::PlainFiles: break;
                             }
                             return "PlainFiles";
                         });

TEST_P(LookupTranslationTest, ResultHasTheTranslatedHeaderAndRecords) {
    addBoth(orchard({lookupItem("graft", "g.html", "Join")}).set("productName", "Orchard"),
            orchard({lookupItem("graft", "g.html", "Veredeln")}).set("productName", "Obstgarten"));
    const DocResource<RefItemLookup> expected = {
        HeaderInfo(u"", u"", u"Obstgarten", u"orchard code", u"orchard", u"orchard/help",
                   u"Orchard"),
        {{u"graft", {lookupRecord(u"graft", u"g.html", u"Veredeln")}}}};
    EXPECT_EQ(merged(), expected);
}

TEST_P(LookupTranslationTest, EnglishFileAddsUntranslatedNames) {
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

TEST_P(LookupTranslationTest, EnglishFileAddsNewHrefsOnlyIfItHasMoreRecords) {
    addBoth(orchard({lookupItem("graft", "g.html", "Join"), lookupItem("graft", "h.html", "Tie"),
                     lookupItem("prune", "p.html", "Cut")}),
            orchard({lookupItem("graft", "g.html", "Veredeln"),
                     lookupItem("prune", "q.html", "Schneiden")}));
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"Orchard",
                                      {lookupRecord(u"graft", u"g.html", u"Veredeln"),
                                       lookupRecord(u"graft", u"h.html", u"Tie"),
                                       lookupRecord(u"prune", u"q.html", u"Schneiden")}));
}

TEST_P(LookupTranslationTest, EnglishFileAddsNothingToALongerTranslation) {
    addBoth(orchard({lookupItem("graft", "e.html", "Join")}),
            orchard({lookupItem("graft", "g.html", "Veredeln"),
                     lookupItem("graft", "h.html", "Binden")}));
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"Orchard",
                                      {lookupRecord(u"graft", u"g.html", u"Veredeln"),
                                       lookupRecord(u"graft", u"h.html", u"Binden")}));
}

TEST_P(LookupTranslationTest, DamagedTranslationLeavesTheEnglishRecords) {
    addBoth(orchard({lookupItem("graft", "g.html", "Join")}).str(), "{");
    EXPECT_EQ(merged(),
              lookupSection(u"orchard", u"Orchard", {lookupRecord(u"graft", u"g.html", u"Join")}));
}

TEST_P(LookupTranslationTest, DamagedEnglishFileLeavesTheTranslation) {
    addBoth("{", orchard({lookupItem("graft", "g.html", "Veredeln")}).str());
    EXPECT_EQ(merged(), lookupSection(u"orchard", u"Orchard",
                                      {lookupRecord(u"graft", u"g.html", u"Veredeln")}));
}

TEST_P(LookupTranslationTest, MergesSupportPackagesByBaseCode) {
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
