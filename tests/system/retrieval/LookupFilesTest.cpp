#include "tests/support/PosixTest.hpp"
#include "tests/system/SystemTest.hpp"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// Which lookup files of a folder are read, and whether their sections count as installed.
class LookupFilesTest : public SystemTest {
protected:
    // Adds a lookup file with one section of one record; both have the name of the product.
    void addProduct(const std::string& name) const {
        addLookup(name + ".json", ResourceText(name).add(lookupItem(name, "x.html", "X")).str());
    }
    static ResourceMap<RefItemLookup> sectionsOf(const std::vector<std::u16string>& names) {
        ResourceMap<RefItemLookup> sections;
        for (const std::u16string& name : names)
            sections.emplace(name,
                             lookupSection(name, name, {lookupRecord(name, u"x.html", u"X")}));
        return sections;
    }
};

TEST_F(LookupFilesTest, EmptyOrMissingFolderHasNoLookups) {
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
    std::filesystem::remove_all(folder.path() / "root");
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
    for (const std::u16string& none : {std::u16string(folder.u16() + u"/none"),
                                       std::u16string(1, u'\0'), std::u16string(u"\xD800")}) {
        DocResourceParser::setReferenceRoot(none);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
    }
}

TEST_F(LookupFilesTest, SplitsSectionsIntoInstalledAndNotInstalled) {
    for (const std::string name : {"orchard", "vineyard", "meadow", "sensorkit"})
        addProduct(name);
    host->install({"vineyard"});
    host->packages = {u"sensorkit"};
    const Lookups expected = {sectionsOf({u"sensorkit", u"vineyard"}),
                              sectionsOf({u"meadow", u"orchard"})};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

TEST_F(LookupFilesTest, TestProductsCountAsInstalled) {
    for (const std::string name : {"orchard", "vineyard", "sensorkit"})
        addProduct(name);
    host->install({"orchard"});
    DocResourceParser::setTestProducts({u"vineyard"}, {u"sensorkit"});
    const Lookups expected = {sectionsOf({u"sensorkit", u"vineyard"}), sectionsOf({u"orchard"})};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

TEST_F(LookupFilesTest, SectionIsInstalledByItsKeyNotItsProductName) {
    ResourceText text("orchard");
    text.addSupportPackage(ResourceText("ladder"));
    addLookup("Vineyard.json", text.str());
    host->install({"ladder code", "Vineyard"});
    const Lookups expected = {{{u"ladder code", lookupSection(u"ladder", u"Vineyard", {})}},
                              {{u"orchard", lookupSection(u"orchard", u"Vineyard", {})}}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

TEST_F(LookupFilesTest, EachCallReadsAllFilesAgain) {
    addProduct("orchard");
    DocResourceParser::getResourceLookupFiles();
    std::filesystem::remove(lookupPath("orchard.json"));
    addProduct("vineyard");
    host->install({"vineyard"});
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(),
              (Lookups{sectionsOf({u"vineyard"}), {}}));
}

TEST_F(LookupFilesTest, ReadsOnlyJsonFilesDirectlyInTheFolder) {
    addProduct("orchard");
    const std::string text = ResourceText("other").str();
    for (const std::string name : {"a.JSON", "b.txt", "c", "d.json.bak", "sub/e.json"})
        addLookup(name, text);
    addApi("f.json", text);
    const LogCapture log(16);
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), (Lookups{{}, sectionsOf({u"orchard"})}));
    EXPECT_THAT(log.messages(),
                testing::ElementsAre("Reading file: " + lookupPath("orchard.json")));
}

TEST_F(LookupFilesTest, DoesNotOpenTranslationsIntoOtherLanguages) {
    host->languages = {u"en", u"de", u"ja"};
    addProduct("orchard");
    addProduct("orchard_de");
    addProduct("orchard_ja");
    const LogCapture log(16);
    DocResourceParser::getResourceLookupFiles();
    EXPECT_THAT(log.messages(),
                testing::ElementsAre("Reading file: " + lookupPath("orchard.json")));
    host->language = u"ja";
    DocResourceParser::getResourceLookupFiles();
    EXPECT_THAT(log.messages(),
                testing::UnorderedElementsAre("Reading file: " + lookupPath("orchard.json"),
                                              "Reading file: " + lookupPath("orchard.json"),
                                              "Reading file: " + lookupPath("orchard_ja.json")));
}

TEST_F(LookupFilesTest, NameOfTranslationEndsAtItsFirstSuffix) {
    setLanguage(u"de");
    addLookup("Orchard_de.json", ResourceText("orchard").str());
    addLookup("Vine_de_yard_de.json", ResourceText("vineyard").str());
    addLookup("Meadow.json", ResourceText("meadow").str());
    const Lookups expected = {{},
                              {{u"orchard", lookupSection(u"orchard", u"Orchard", {})},
                               {u"vineyard", lookupSection(u"vineyard", u"Vine", {})},
                               {u"meadow", lookupSection(u"meadow", u"Meadow", {})}}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

TEST_F(LookupFilesTest, SuffixOfUnsupportedLanguageIsPartOfTheName) {
    host->language = u"de";
    addLookup("Orchard_de.json", ResourceText("orchard").str());
    const Lookups expected = {{}, {{u"orchard", lookupSection(u"orchard", u"Orchard_de", {})}}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

POSIX_TEST_F(LookupFilesTest, MissingFileDoesNotAffectOthers) {
    addProduct("orchard");
    std::filesystem::create_symlink("absent", lookupPath("Gone.json"));
    addProduct("vineyard");
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(),
              (Lookups{{}, sectionsOf({u"orchard", u"vineyard"})}));
}

TEST_F(LookupFilesTest, SkipsOnlyDamagedFiles) {
    const std::string good = ResourceText("bad").add(lookupItem("n", "h", "p")).str();
    const std::string damaged[] = {
        "",
        " ",
        "null",
        "1",
        "\"x\"",
        "[]",
        "{}",
        "[" + good + "]",
        good + good,
        good.substr(0, good.size() - 1),
        good + ",",
        "\xEF\xBB\xBF" + good,
        std::string(5000, '['),
        std::string("\0\0\0\0", 4),
        "\xFF\xFE",
        ResourceText("bad").set("refItems", nullptr).str(),
        ResourceText("bad").set("helpFolder", 1).str(),
        ResourceText("bad").add({{"name", "n"}, {"href", "h"}}).str(),
        ResourceText("bad").add({{"name", 1}, {"href", "h"}, {"refpurpose", "p"}}).str(),
        ResourceText("bad").set("supportPackages", 1).str(),
        ResourceText("bad").addSupportPackage(ResourceText("x").set("refItems", 1)).str()};
    ResourceMap<RefItemLookup> expected;
    std::string name = "good";
    for (const std::string& text : damaged) {
        name += '+';
        addLookup("bad" + name + ".json", text);
        addProduct(name);
        expected.merge(sectionsOf({std::u16string(name.begin(), name.end())}));
    }
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), (Lookups{{}, expected}));
}

TEST_F(LookupFilesTest, FailingCatalogueSkipsTheRemainingSectionsOfTheProduct) {
    addLookup("Many.json", ResourceText("a")
                               .addSupportPackage(ResourceText("b").set("baseCode", "b"))
                               .addSupportPackage(ResourceText("c").set("baseCode", "c"))
                               .str());
    int calls = 0;
    host->onProducts = [&calls] {
        if (++calls == 2)
            throw std::runtime_error("the catalogue fails once");
    };
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(),
              (Lookups{{}, {{u"a", lookupSection(u"a", u"Many", {})}}}));
    EXPECT_EQ(calls, 2);
}

TEST_F(LookupFilesTest, FindsNothingIfTheSupportPackageRootCannotBeRead) {
    addProduct("orchard");
    addProduct("vineyard");
    host->onPackageRoot = [] { throw std::runtime_error("the root reader fails"); };
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
    host->onPackageRoot = nullptr;
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(),
              (Lookups{{}, sectionsOf({u"orchard", u"vineyard"})}));
}

POSIX_TEST_F(LookupFilesTest, ReadsOtherFilesAfterAnIllFormedFileName) {
    addProduct("orchard");
    addLookup("broken\xFF.json", ResourceText("unreachable").str());
    addProduct("vineyard");
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(),
              (Lookups{{}, sectionsOf({u"orchard", u"vineyard"})}));
}

} // namespace
} // namespace docparser_tests
