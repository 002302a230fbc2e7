#include "docparser/DocParserException.hpp"
#include "tests/system/SystemTest.hpp"

#include <string>
#include <vector>

namespace docparser_tests {
namespace {

using Tools = DocResourceParser::ParsingTools;

// Results of the library in a static initialiser, before main().
struct Seen {
    std::vector<std::u16string> constants;
    std::u16string defaultRoot;
    std::u16string setRoot;
    std::u16string supportPackageFolder;
    std::u16string absentProduct;
    bool hasNoLookups = false;
    bool isTestProductInstalled = false;
    std::vector<std::u16string> locales;
};

Seen lookAround() {
    const auto host = std::make_shared<FakeHost>();
    host->languages = {u"en", u"de"};
    platform::setHostServices(host);
    Seen seen;
    seen.constants = {Tools::kJsonExt,       Tools::kDotJsonExt,
                      Tools::kZipExt,        Tools::kDotZipExt,
                      Tools::kEnglishLocale, std::u16string(1, Tools::kLocaleSeparator)};
    seen.defaultRoot = DocResourceParser::getReferenceRoots()->root;
    DocResourceParser::setReferenceRoot(u"/no/such/root");
    seen.setRoot = DocResourceParser::getReferenceRoots()->root;
    seen.supportPackageFolder = *DocResourceParser::getSupportPackageRoot();
    try {
        DocResourceParser::getResourceFile(u"Early");
    } catch (const reference::docparser::DocParserException& exception) {
        seen.absentProduct = exception.getProductName();
    }
    seen.hasNoLookups = DocResourceParser::getResourceLookupFiles() == Lookups();
    DocResourceParser::setTestProducts({u"early"}, {});
    seen.isTestProductInstalled = DocResourceParser::isProductInstalled(u"early");
    seen.locales = Tools::getSupportedDocLocales();
    platform::setHostServices(nullptr);
    DocResourceParser::restoreDefaultSettings();
    return seen;
}

const Seen seenBeforeMain = lookAround();

TEST(StaticInitialisationTest, ConstantsAreReadyBeforeMain) {
    EXPECT_THAT(seenBeforeMain.constants,
                testing::ElementsAre(u"json", u".json", u"zip", u".zip", u"en", u"_"));
}

TEST(StaticInitialisationTest, EveryOperationWorksBeforeMain) {
    EXPECT_EQ(seenBeforeMain.defaultRoot,
              platform::defaultHostServices()->installPath() + native(u"/help"));
    EXPECT_EQ(seenBeforeMain.setRoot, u"/no/such/root");
    EXPECT_EQ(seenBeforeMain.supportPackageFolder,
              u"/no/such/support" + native(u"/help/docCatalog/referenceapi"));
    EXPECT_EQ(seenBeforeMain.absentProduct, u"Early");
    EXPECT_TRUE(seenBeforeMain.hasNoLookups);
    EXPECT_TRUE(seenBeforeMain.isTestProductInstalled);
    EXPECT_THAT(seenBeforeMain.locales, testing::ElementsAre(u"_de"));
}

} // namespace
} // namespace docparser_tests
