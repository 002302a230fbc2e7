#include "docparser/DocParserException.hpp"
#include "tests/system/SystemTest.hpp"

#include <stdexcept>
#include <string>

namespace docparser_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class InstalledProductsTest : public SystemTest {
protected:
    // Returns the package query that the host gets for a support-package folder.
    std::string queriedFolder(const std::u16string& supportPackageFolder) const {
        DocResourceParser::setSupportPackageRoot(supportPackageFolder);
        DocResourceParser::getHardwareSupportPackages();
        return host->questions().back();
    }
};

[[noreturn]] void fail() {
    throw std::runtime_error("the host fails");
}

TEST_F(InstalledProductsTest, AsksTheCatalogueAtEachCall) {
    host->install({"orchard", "vineyard"});
    EXPECT_THAT(*DocResourceParser::getTopLevelProducts(),
                ElementsAre(host->products[0], host->products[1]));
    host->install({"meadow"});
    EXPECT_THAT(*DocResourceParser::getTopLevelProducts(), ElementsAre(host->products[0]));
    EXPECT_EQ(host->count("products"), 2);
}

TEST_F(InstalledProductsTest, ListOfProductsIsSnapshot) {
    host->install({"orchard"});
    const auto before = DocResourceParser::getTopLevelProducts();
    host->install({});
    DocResourceParser::setTestProducts({}, {});
    ASSERT_EQ(before->size(), 1U);
    EXPECT_EQ(before->front()->getShortName(), "orchard");
}

TEST_F(InstalledProductsTest, FailingCatalogueFailsOnlyThatCall) {
    host->install({"orchard"});
    host->onProducts = fail;
    EXPECT_THROW(DocResourceParser::getTopLevelProducts(), std::runtime_error);
    EXPECT_THROW(DocResourceParser::isProductInstalled(u"orchard"), std::runtime_error);
    host->onProducts = nullptr;
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"orchard"));
    DocResourceParser::setTestProducts({u"test"}, {});
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"orchard"));
}

TEST_F(InstalledProductsTest, ShortNamesAreCaseSensitive) {
    host->install({"orchard"});
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"orchard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"Orchard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"orchar"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"orchards"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(std::u16string(u"orchard\0", 8)));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u""));
}

TEST_F(InstalledProductsTest, SupportPackageMayDifferFromProductOnlyInCase) {
    host->install({"orchard"});
    host->packages = {u"Orchard"};
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"Orchard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"ORCHARD"));
}

TEST_F(InstalledProductsTest, ComparesShortNamesAsUtf8) {
    host->install({"obst\xC3\xA4\xF0\x9F\x8D\x8E"});
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"obst\u00e4\U0001F34E"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"obst\u00e5\U0001F34E"));
}

TEST_F(InstalledProductsTest, NameOfProductAndSupportPackageIsInstalled) {
    host->install({"orchard"});
    host->packages = {u"orchard"};
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"orchard"));
}

TEST_F(InstalledProductsTest, SupportPackageIsInstalled) {
    host->packages = {u"sensorkit"};
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"sensorkit"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"Sensorkit"));
}

TEST_F(InstalledProductsTest, DistinguishesUnpairedSurrogatesInSupportPackageNames) {
    host->packages = {std::u16string(1, char16_t(0xD800))};
    EXPECT_TRUE(DocResourceParser::isProductInstalled(std::u16string(1, char16_t(0xD800))));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(std::u16string(1, char16_t(0xD801))));
}

TEST_F(InstalledProductsTest, AsksForSupportPackagesBeforeProducts) {
    host->packageRoot = u"/s";
    DocResourceParser::isProductInstalled(u"orchard");
    EXPECT_THAT(host->questions(), ElementsAre("package root", "packages below /s", "products"));
}

TEST_F(InstalledProductsTest, SkipsNullProductsOfTheHost) {
    host->products = {nullptr, makeProduct("orchard")};
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"orchard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"vineyard"));
}

TEST_F(InstalledProductsTest, QueriesSupportPackagesOnce) {
    host->packages = {u"sensorkit"};
    const auto first = DocResourceParser::getHardwareSupportPackages();
    host->packages = {u"motorkit"};
    EXPECT_EQ(DocResourceParser::getHardwareSupportPackages(), first);
    EXPECT_THAT(*first, UnorderedElementsAre(u"sensorkit"));
    EXPECT_EQ(host->questions().size(), 2U);
}

TEST_F(InstalledProductsTest, CachesEmptySetOfSupportPackages) {
    const auto first = DocResourceParser::getHardwareSupportPackages();
    EXPECT_THAT(*first, IsEmpty());
    EXPECT_EQ(DocResourceParser::getHardwareSupportPackages(), first);
    EXPECT_EQ(host->questions().size(), 2U);
}

TEST_F(InstalledProductsTest, FailedQueryMeansNoPackagesUntilTheCachesAreCleared) {
    host->packageRoot = u"/s";
    host->packages = {u"sensorkit"};
    host->onPackages = fail;
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(), IsEmpty());
    host->onPackages = nullptr;
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(), IsEmpty());
    EXPECT_EQ(host->count("packages below /s"), 1);
    DocResourceParser::clearSupportPackageCaches();
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"sensorkit"));
    EXPECT_EQ(host->count("packages below /s"), 2);
}

TEST_F(InstalledProductsTest, QueryMayThrowAnyType) {
    host->onPackages = [] { throw 7; };
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(), IsEmpty());
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"sensorkit"));
}

TEST_F(InstalledProductsTest, QueriesTheFolderWithoutItsLastThreeComponents) {
    EXPECT_EQ(queriedFolder(u"/F/one/two/three"), "packages below /F");
    EXPECT_EQ(queriedFolder(u"/a/F/one/two/three/"), "packages below /a/F");
    EXPECT_EQ(queriedFolder(u"F/one//two///three"), "packages below F");
    EXPECT_EQ(queriedFolder(u"C/F/help/docCatalog/referenceapi"), "packages below C/F");
}

TEST_F(InstalledProductsTest, QueriesEmptyPathIfTheFolderHasTooFewComponents) {
    for (const std::u16string path : {u"one/two/three", u"/one", u"one", u"/", u""})
        EXPECT_EQ(queriedFolder(path), "packages below ");
}

TEST_F(InstalledProductsTest, QueriesTheRootOfTheHost) {
    for (const std::u16string path : {u"/s", u"/s/", u"/s//"}) {
        host->packageRoot = path;
        DocResourceParser::clearSupportPackageCaches();
        DocResourceParser::getHardwareSupportPackages();
        EXPECT_EQ(host->questions().back(), "packages below /s");
    }
}

TEST_F(InstalledProductsTest, FailingRootReaderFailsTheCallAndCachesNothing) {
    host->packages = {u"sensorkit"};
    host->onPackageRoot = fail;
    EXPECT_THROW(DocResourceParser::getSupportPackageRoot(), std::runtime_error);
    EXPECT_THROW(DocResourceParser::getHardwareSupportPackages(), std::runtime_error);
    EXPECT_THROW(DocResourceParser::isProductInstalled(u"sensorkit"), std::runtime_error);
    host->onPackageRoot = nullptr;
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"sensorkit"));
}

TEST_F(InstalledProductsTest, DoesNotReachFailingRootReaderIfTheRootHasTheProduct) {
    host->onPackageRoot = fail;
    addApi("Orchard.json", resourceText("orchard", {}));
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").size(), 1U);
    EXPECT_THROW(DocResourceParser::getResourceFile(u"Vineyard"), std::runtime_error);
}

TEST_F(InstalledProductsTest, AsksTheLanguageServiceAtEachCall) {
    using Tools = DocResourceParser::ParsingTools;
    for (const std::u16string language : {u"", u"en", u"EN", u"zh_CN"}) {
        host->language = language;
        EXPECT_EQ(Tools::getCurrentLocale(), language);
    }
    host->languages = {u"ja", u"en", u"ja", u"EN", u"", u"en_US"};
    EXPECT_THAT(Tools::getSupportedDocLocales(),
                ElementsAre(u"_ja", u"_ja", u"_EN", u"_", u"_en_US"));
    host->languages = {u"en"};
    EXPECT_THAT(Tools::getSupportedDocLocales(), IsEmpty());
}

TEST_F(InstalledProductsTest, FailingLanguageServiceFailsTheRetrieval) {
    addApi("Orchard.json", resourceText("orchard", {}));
    host->onLanguage = fail;
    EXPECT_THROW(DocResourceParser::getResourceFile(u"Orchard"), std::runtime_error);
    EXPECT_THROW(DocResourceParser::getResourceLookupFiles(), std::runtime_error);
    EXPECT_THROW(DocResourceParser::ParsingTools::getCurrentLocale(), std::runtime_error);
    host->onLanguage = nullptr;
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").size(), 1U);
}

} // namespace
} // namespace docparser_tests
