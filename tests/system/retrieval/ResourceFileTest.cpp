#include "tests/support/PosixTest.hpp"
#include "tests/system/SystemTest.hpp"

#include <string>

namespace docparser_tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// Which files of a product are read, and which of their sections are in the result.
class ResourceFileTest : public SystemTest {
protected:
    const std::string english = resourceText("orchard", {{"graft.html", "Join trees"}});
    const std::string german = resourceText("orchard", {{"graft.html", "Veredeln"}});
    const Resources englishRecords = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Join trees"}})}};
    const Resources germanRecords = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Veredeln"}})}};
};

TEST_F(ResourceFileTest, ReadsTheEnglishFile) {
    addApi("Orchard.json", english);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
}

TEST_F(ResourceFileTest, EachCallReadsTheFileAgain) {
    addApi("Orchard.json", english);
    DocResourceParser::getResourceFile(u"Orchard");
    addApi("Orchard.json", german);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanRecords);
}

TEST_F(ResourceFileTest, EnglishHasNoTranslationFile) {
    addApi("Orchard.json", english);
    addApi("Orchard_en.json", german);
    const LogCapture log(16);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
    EXPECT_THAT(log.messages(), ElementsAre("Reading file: " + apiPath("Orchard.json")));
}

TEST_F(ResourceFileTest, DoesNotFindFileWithEnglishSuffix) {
    addApi("Orchard_en.json", english);
    const LogCapture log(16);
    EXPECT_EQ(findResources(u"Orchard"), std::nullopt);
    EXPECT_THAT(log.messages(), Not(Contains(HasSubstr("_en"))));
}

TEST_F(ResourceFileTest, OnlyTheExactCodeIsEnglish) {
    addApi("Orchard.json", english);
    addApi("Orchard_EN.json", german);
    addApi("Orchard_en_US.json", german);
    for (const std::u16string language : {u"EN", u"en_US"}) {
        host->language = language;
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanRecords);
    }
}

TEST_F(ResourceFileTest, EmptyLanguageHasItsOwnTranslation) {
    addApi("Orchard.json", english);
    addApi("Orchard_.json", german);
    host->language = u"";
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanRecords);
}

TEST_F(ResourceFileTest, ReadsTranslationIntoUnsupportedLanguage) {
    addApi("Orchard_de.json", german);
    host->language = u"de";
    host->languages = {u"en"};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanRecords);
}

TEST_F(ResourceFileTest, ReadsTranslationWithoutEnglishFile) {
    addApi("Orchard_de.json", german);
    setLanguage(u"de");
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanRecords);
}

TEST_F(ResourceFileTest, TranslationInTheRootHidesTheSupportFolder) {
    addApi("Orchard_de.json", german);
    addSupport("Orchard.json", english);
    setLanguage(u"de");
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanRecords);
}

TEST_F(ResourceFileTest, IgnoresTranslationIntoAnotherLanguage) {
    addApi("Orchard.json", english);
    addApi("Orchard_ja.json", german);
    setLanguage(u"de");
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
}

TEST_F(ResourceFileTest, DamagedTranslationDoesNotHideEnglish) {
    addApi("Orchard.json", english);
    setLanguage(u"de");
    for (const std::string damaged : {"", "{", "[]", "{\"refItems\": []}"}) {
        addApi("Orchard_de.json", damaged);
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords) << damaged;
    }
}

TEST_F(ResourceFileTest, DamagedEnglishFileDoesNotHideTranslation) {
    addApi("Orchard_de.json", german);
    addSupport("Orchard.json", english);
    setLanguage(u"de");
    for (const std::string damaged : {"", "{", "[]", "{\"refItems\": []}"}) {
        addApi("Orchard.json", damaged);
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanRecords) << damaged;
    }
}

TEST_F(ResourceFileTest, ReadsTheSupportFolderIfTheEnglishFileIsEmpty) {
    addApi("Orchard.json", "");
    addSupport("Orchard.json", english);
    for (const std::u16string language : {u"en", u"de"}) {
        host->language = language;
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
    }
}

TEST_F(ResourceFileTest, ReadsTheSupportFolderIfTheEnglishFileIsDamaged) {
    addApi("Orchard.json", english.substr(0, english.size() - 1));
    addSupport("Orchard.json", english);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
}

TEST_F(ResourceFileTest, ProductInTheSupportFolderLogsNoException) {
    addSupport("Orchard.json", english);
    const LogCapture log(512);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(ResourceFileTest, OverlaysTranslationInTheSupportFolder) {
    addSupport("Orchard.json",
               resourceText("orchard", {{"graft.html", "Join trees"}, {"prune.html", "Cut back"}}));
    addSupport("Orchard_de.json", german);
    setLanguage(u"de");
    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard",
                             {{u"graft.html", u"Veredeln"}, {u"prune.html", u"Cut back"}})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(ResourceFileTest, DoesNotCombineFilesOfRootAndSupportFolder) {
    addApi("Orchard.json", english);
    addSupport("Orchard_de.json", german);
    setLanguage(u"de");
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
}

TEST_F(ResourceFileTest, DoesNotAskForTheSupportFolderIfTheRootHasTheProduct) {
    addApi("Orchard.json", english);
    DocResourceParser::getResourceFile(u"Orchard");
    EXPECT_EQ(host->count("package root"), 0);
}

TEST_F(ResourceFileTest, UsesSetSupportFolderUnchanged) {
    folder.write("flat/Orchard.json", english);
    DocResourceParser::setSupportPackageRoot(folder.u16() + u"/flat");
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
    DocResourceParser::setSupportPackageRoot(folder.u16() + u"/flat/");
    const LogCapture log(16);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishRecords);
    EXPECT_EQ(log.messages().back(),
              "Reading file: " + textOf(folder.path()) + "/flat/Orchard.json");
}

POSIX_TEST_F(ResourceFileTest, ProductNameIsCaseSensitive) {
    addApi("Orchard.json", english);
    EXPECT_EQ(findResources(u"orchard"), std::nullopt);
    EXPECT_EQ(findResources(u"Orchard.json"), std::nullopt);
    EXPECT_EQ(findResources(u" Orchard"), std::nullopt);
}

TEST_F(ResourceFileTest, KeysMainSectionByHelpFolderAndPackageByBaseCode) {
    ResourceText text("orchard");
    text.add(item("graft.html", "Join"));
    text.addSupportPackage(ResourceText("ladder").add(item("climb.html", "Go up")));
    addApi("Orchard.json", text.str());
    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Join"}})},
        {u"ladder code", section(u"ladder", u"Orchard", {{u"climb.html", u"Go up"}})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(ResourceFileTest, FirstOfTwoPackagesWithTheSameBaseCodeWins) {
    ResourceText text("orchard");
    text.addSupportPackage(
        ResourceText("first").set("baseCode", "LD").add(item("climb.html", "Go up")));
    text.addSupportPackage(
        ResourceText("second").set("baseCode", "LD").add(item("fall.html", "Go down")));
    addApi("Orchard.json", text.str());

    const Resources resources = DocResourceParser::getResourceFile(u"Orchard");
    ASSERT_EQ(resources.size(), 2U);
    EXPECT_EQ(resources.at(u"orchard"), section(u"orchard", u"Orchard", {}));
    EXPECT_EQ(resources.at(u"LD").header.getHelpFolder(), u"first");
    EXPECT_EQ(resources.at(u"LD").items,
              section(u"first", u"Orchard", {{u"climb.html", u"Go up"}}).items);
}

TEST_F(ResourceFileTest, SkipsPackageWhoseBaseCodeIsTheHelpFolder) {
    ResourceText text("orchard");
    text.add(item("graft.html", "Join"));
    text.addSupportPackage(
        ResourceText("ladder").set("baseCode", "orchard").add(item("climb.html", "Go up")));
    addApi("Orchard.json", text.str());
    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Join"}})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(ResourceFileTest, IgnoresPackagesOfAPackage) {
    ResourceText inner("ladder");
    inner.addSupportPackage(ResourceText("rung"));
    addApi("Orchard.json", ResourceText("orchard").addSupportPackage(inner).str());
    const Resources expected = {{u"orchard", section(u"orchard", u"Orchard", {})},
                                {u"ladder code", section(u"ladder", u"Orchard", {})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(ResourceFileTest, EmptyArrayOfPackagesAddsNoSection) {
    addApi("Orchard.json",
           ResourceText("orchard").set("supportPackages", boost::json::array()).str());
    const Resources expected = {{u"orchard", section(u"orchard", u"Orchard", {})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(ResourceFileTest, SkipsFileIfPackagesAreNotAnArray) {
    for (const boost::json::value& packages :
         {boost::json::value(nullptr), boost::json::value(1), boost::json::value("x"),
          boost::json::value(boost::json::object())}) {
        addApi("Orchard.json", ResourceText("orchard").set("supportPackages", packages).str());
        EXPECT_EQ(findResources(u"Orchard"), std::nullopt) << boost::json::serialize(packages);
    }
}

TEST_F(ResourceFileTest, DamagedPackageSkipsTheFile) {
    ResourceText text("orchard");
    text.addSupportPackage(ResourceText("ladder").set("refItems", 1));
    addApi("Orchard.json", text.str());
    EXPECT_EQ(findResources(u"Orchard"), std::nullopt);
}

TEST_F(ResourceFileTest, ItemsOfOneHrefAreInFileOrder) {
    addApi("Orchard.json", resourceText("orchard", {{"graft.html", "first"},
                                                    {"prune.html", "other"},
                                                    {"graft.html", "second"}}));
    const auto items = DocResourceParser::getResourceFile(u"Orchard").at(u"orchard").items;
    EXPECT_THAT(items.at(u"graft.html"),
                ElementsAre(record(u"graft.html", u"first"), record(u"graft.html", u"second")));
    EXPECT_THAT(items.at(u"prune.html"), ElementsAre(record(u"prune.html", u"other")));
}

} // namespace
} // namespace docparser_tests
