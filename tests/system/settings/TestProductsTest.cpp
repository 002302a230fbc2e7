#include "tests/system/SystemTest.hpp"

#include <string>
#include <vector>

namespace docparser_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// Test products replace the product and the support package that the host has.
class TestProductsTest : public SystemTest {
protected:
    TestProductsTest() {
        host->install({"orchard"});
        host->packages = {u"sensorkit"};
    }
};

std::vector<std::string> shortNamesOf(const auto& products) {
    std::vector<std::string> names;
    for (const auto& product : products)
        names.push_back(product->getShortName());
    return names;
}

TEST_F(TestProductsTest, EachNameBecomesAProduct) {
    DocResourceParser::setTestProducts({u"vineyard", u"obst\u00e4"}, {});
    EXPECT_THAT(shortNamesOf(*DocResourceParser::getTopLevelProducts()),
                ElementsAre("vineyard", "obst\xC3\xA4"));
}

TEST_F(TestProductsTest, NothingIsInstalledAfterEmptyLists) {
    DocResourceParser::setTestProducts({}, {});
    EXPECT_THAT(*DocResourceParser::getTopLevelProducts(), IsEmpty());
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(), IsEmpty());
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"orchard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"sensorkit"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u""));
    EXPECT_THAT(host->questions(), IsEmpty());
}

TEST_F(TestProductsTest, RepeatedTopLevelNameBecomesTwoProducts) {
    DocResourceParser::setTestProducts({u"vineyard", u"vineyard"}, {});
    EXPECT_THAT(shortNamesOf(*DocResourceParser::getTopLevelProducts()),
                ElementsAre("vineyard", "vineyard"));
}

TEST_F(TestProductsTest, RepeatedSupportPackageNameIsKeptOnce) {
    DocResourceParser::setTestProducts({}, {u"motorkit", u"motorkit", u"camerakit"});
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"motorkit", u"camerakit"));
}

TEST_F(TestProductsTest, LoadFactorOfTheSupportPackagesIsAtMostOne) {
    DocResourceParser::setTestProducts({}, {u"a", u"b", u"c", u"d", u"e"});
    const auto packages = DocResourceParser::getHardwareSupportPackages();
    EXPECT_EQ(packages->max_load_factor(), 1.0F);
    EXPECT_LE(packages->load_factor(), 1.0F);
}

TEST_F(TestProductsTest, NameInBothListsIsInstalled) {
    DocResourceParser::setTestProducts({u"both"}, {u"both"});
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"both"));
}

TEST_F(TestProductsTest, OnlyTheGivenNamesAreInstalled) {
    DocResourceParser::setTestProducts({u"vineyard"}, {u"motorkit"});
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"vineyard"));
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"motorkit"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"orchard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"sensorkit"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"Vineyard"));
}

TEST_F(TestProductsTest, ListsAreBuiltOnceAndShared) {
    DocResourceParser::setTestProducts({u"vineyard"}, {});
    EXPECT_EQ(DocResourceParser::getTopLevelProducts(), DocResourceParser::getTopLevelProducts());
    EXPECT_EQ(DocResourceParser::getHardwareSupportPackages(),
              DocResourceParser::getHardwareSupportPackages());
    EXPECT_THAT(host->questions(), IsEmpty());
}

TEST_F(TestProductsTest, ClearingTheCachesDropsOnlyTheSupportPackages) {
    DocResourceParser::setTestProducts({u"vineyard"}, {u"motorkit"});
    DocResourceParser::clearSupportPackageCaches();
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"vineyard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"orchard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"motorkit"));
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"sensorkit"));
}

TEST_F(TestProductsTest, SettingTheSupportPackageFolderDropsOnlyTheSupportPackages) {
    DocResourceParser::setTestProducts({u"vineyard"}, {u"motorkit"});
    DocResourceParser::setSupportPackageRoot(u"/F/a/b/c");
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"vineyard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"motorkit"));
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"sensorkit"));
    EXPECT_EQ(host->count("packages below /F"), 1);
}

TEST_F(TestProductsTest, SupportPackageFolderIsKept) {
    DocResourceParser::setSupportPackageRoot(u"F");
    const auto before = DocResourceParser::getSupportPackageRoot();
    DocResourceParser::setTestProducts({u"vineyard"}, {u"motorkit"});
    EXPECT_EQ(DocResourceParser::getSupportPackageRoot(), before);
}

TEST_F(TestProductsTest, CachedSupportPackagesAreReplaced) {
    ASSERT_TRUE(DocResourceParser::isProductInstalled(u"sensorkit"));
    DocResourceParser::setTestProducts({}, {u"motorkit"});
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"motorkit"));
}

TEST_F(TestProductsTest, LaterCallReplacesTheProductsOfAnEarlierOne) {
    DocResourceParser::setTestProducts({u"first"}, {u"firstkit"});
    const auto before = DocResourceParser::getTopLevelProducts();
    DocResourceParser::setTestProducts({u"second"}, {u"secondkit"});
    EXPECT_THAT(shortNamesOf(*before), ElementsAre("first"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"first"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"firstkit"));
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"second"));
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"secondkit"));
}

TEST_F(TestProductsTest, RestoringTheDefaultsBringsBackTheInstallation) {
    DocResourceParser::setTestProducts({u"vineyard"}, {u"motorkit"});
    DocResourceParser::restoreDefaultSettings();
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"vineyard"));
    EXPECT_FALSE(DocResourceParser::isProductInstalled(u"motorkit"));
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"orchard"));
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"sensorkit"));
}

} // namespace
} // namespace docparser_tests
