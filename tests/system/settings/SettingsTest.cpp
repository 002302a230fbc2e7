#include "tests/system/SystemTest.hpp"

#include <stdexcept>
#include <type_traits>

namespace docparser_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class SettingsTest : public SystemTest {};

TEST_F(SettingsTest, ReferenceRootHasTwoFolders) {
    DocResourceParser::setReferenceRoot(u"X");
    const auto roots = DocResourceParser::getReferenceRoots();
    EXPECT_EQ(roots->root, u"X");
    EXPECT_EQ(roots->lookupFolder, native(u"X/docCatalog/referenceapi_lookup"));
    EXPECT_EQ(roots->referenceApiFolder, native(u"X/docCatalog/referenceapi"));
}

TEST_F(SettingsTest, KeepsReferenceRootUnchanged) {
    for (const std::u16string root : {u"", u"/x/", u"a/../b//", u"\xD800"}) {
        DocResourceParser::setReferenceRoot(root);
        const auto roots = DocResourceParser::getReferenceRoots();
        EXPECT_EQ(roots->root, root);
        EXPECT_EQ(roots->lookupFolder, root + native(u"/docCatalog/referenceapi_lookup"));
        EXPECT_EQ(roots->referenceApiFolder, root + native(u"/docCatalog/referenceapi"));
    }
}

TEST_F(SettingsTest, SnapshotOfRootsKeepsItsValues) {
    DocResourceParser::setReferenceRoot(u"first");
    const auto snapshot = DocResourceParser::getReferenceRoots();
    DocResourceParser::setReferenceRoot(u"second");
    EXPECT_EQ(snapshot->root, u"first");
    EXPECT_EQ(snapshot->referenceApiFolder, native(u"first/docCatalog/referenceapi"));
    EXPECT_EQ(DocResourceParser::getReferenceRoots()->root, u"second");
    DocResourceParser::restoreDefaultSettings();
    EXPECT_EQ(snapshot->root, u"first");
}

TEST_F(SettingsTest, ReturnsRootsAsOneSharedConstObject) {
    static_assert(std::is_same_v<decltype(DocResourceParser::getReferenceRoots()),
                                 std::shared_ptr<const DocResourceParser::ReferenceRoots>>);
    EXPECT_EQ(DocResourceParser::getReferenceRoots(), DocResourceParser::getReferenceRoots());
}

TEST_F(SettingsTest, DefaultRootIsHelpFolderOfTheInstallationForAnyHost) {
    DocResourceParser::restoreDefaultSettings();
    EXPECT_EQ(DocResourceParser::getReferenceRoots()->root,
              platform::defaultHostServices()->installPath() + native(u"/help"));
}

TEST_F(SettingsTest, KeepsSupportPackageFolderUnchanged) {
    for (const std::u16string path : {u"F", u"", u"/a/b/", u"help"}) {
        DocResourceParser::setSupportPackageRoot(path);
        EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(), path);
    }
    EXPECT_EQ(host->count("package root"), 0);
}

TEST_F(SettingsTest, AppendsThreeLevelsToSupportPackageRootOfTheHost) {
    host->packageRoot = u"/s";
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(),
              u"/s" + native(u"/help/docCatalog/referenceapi"));
    host->packageRoot = u"";
    DocResourceParser::clearSupportPackageCaches();
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(),
              native(u"/help/docCatalog/referenceapi"));
    host->packageRoot = u"/s/";
    DocResourceParser::clearSupportPackageCaches();
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(),
              u"/s/" + native(u"/help/docCatalog/referenceapi"));
}

TEST_F(SettingsTest, ClearingTheCachesRestoresTheComputedFolder) {
    host->packageRoot = u"/s";
    DocResourceParser::setSupportPackageRoot(u"F");
    ASSERT_EQ(*DocResourceParser::getSupportPackageRoot(), u"F");
    DocResourceParser::clearSupportPackageCaches();
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(),
              u"/s" + native(u"/help/docCatalog/referenceapi"));
    EXPECT_EQ(host->count("package root"), 1);
}

TEST_F(SettingsTest, ComputesSupportPackageFolderOnce) {
    const auto first = DocResourceParser::getSupportPackageRoot();
    host->packageRoot = u"/elsewhere";
    EXPECT_EQ(DocResourceParser::getSupportPackageRoot(), first);
    EXPECT_EQ(host->count("package root"), 1);
}

TEST_F(SettingsTest, SupportPackageFolderSetDuringTheHostCallIsKept) {
    host->packageRoot = u"/s";
    host->onPackageRoot = [] { DocResourceParser::setSupportPackageRoot(u"/set/meanwhile"); };
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(), u"/set/meanwhile");
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(), u"/set/meanwhile");
    EXPECT_EQ(host->count("package root"), 1);
}

TEST_F(SettingsTest, SnapshotOfSupportPackageFolderKeepsItsValue) {
    DocResourceParser::setSupportPackageRoot(u"first");
    const auto snapshot = DocResourceParser::getSupportPackageRoot();
    DocResourceParser::setSupportPackageRoot(u"second");
    EXPECT_EQ(*snapshot, u"first");
}

TEST_F(SettingsTest, SettingTheReferenceRootKeepsSupportPackageSettings) {
    host->packages = {u"sensorkit"};
    DocResourceParser::setSupportPackageRoot(u"F");
    const auto folderBefore = DocResourceParser::getSupportPackageRoot();
    const auto packagesBefore = DocResourceParser::getHardwareSupportPackages();
    DocResourceParser::setReferenceRoot(u"X");
    EXPECT_EQ(DocResourceParser::getSupportPackageRoot(), folderBefore);
    EXPECT_EQ(DocResourceParser::getHardwareSupportPackages(), packagesBefore);
}

TEST_F(SettingsTest, SettingTheSupportPackageFolderKeepsTheReferenceRoot) {
    const auto before = DocResourceParser::getReferenceRoots();
    DocResourceParser::setSupportPackageRoot(u"F");
    DocResourceParser::clearSupportPackageCaches();
    EXPECT_EQ(DocResourceParser::getReferenceRoots(), before);
}

TEST_F(SettingsTest, SettingTheSupportPackageFolderQueriesThePackagesAgain) {
    host->packages = {u"sensorkit"};
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"sensorkit"));
    host->packages = {u"motorkit"};
    DocResourceParser::setSupportPackageRoot(u"/F/a/b/c");
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"motorkit"));
}

TEST_F(SettingsTest, RestoringTheDefaultsResetsEverySetting) {
    DocResourceParser::restoreDefaultSettings();
    const std::u16string startRoot = DocResourceParser::getReferenceRoots()->root;
    host->install({"orchard"});
    host->packages = {u"sensorkit"};
    host->packageRoot = u"/s";

    DocResourceParser::setReferenceRoot(u"X");
    DocResourceParser::setSupportPackageRoot(u"F");
    DocResourceParser::setTestProducts({u"test"}, {u"testkit"});
    DocResourceParser::restoreDefaultSettings();

    const auto roots = DocResourceParser::getReferenceRoots();
    EXPECT_EQ(roots->root, startRoot);
    EXPECT_EQ(roots->lookupFolder, startRoot + native(u"/docCatalog/referenceapi_lookup"));
    EXPECT_EQ(roots->referenceApiFolder, startRoot + native(u"/docCatalog/referenceapi"));
    EXPECT_THAT(*DocResourceParser::getTopLevelProducts(), ElementsAre(host->products.front()));
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(),
              u"/s" + native(u"/help/docCatalog/referenceapi"));
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"sensorkit"));
}

TEST_F(SettingsTest, RestoringTheDefaultsClearsCachedValues) {
    host->packages = {u"sensorkit"};
    DocResourceParser::getHardwareSupportPackages();
    host->packages = {u"motorkit"};
    host->packageRoot = u"/elsewhere";
    DocResourceParser::restoreDefaultSettings();
    EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(),
              u"/elsewhere" + native(u"/help/docCatalog/referenceapi"));
    EXPECT_THAT(*DocResourceParser::getHardwareSupportPackages(),
                UnorderedElementsAre(u"motorkit"));
}

TEST_F(SettingsTest, ChangingSettingsDoesNotCallTheHost) {
    DocResourceParser::setReferenceRoot(u"X");
    DocResourceParser::setSupportPackageRoot(u"F");
    DocResourceParser::setTestProducts({u"test"}, {u"testkit"});
    DocResourceParser::clearSupportPackageCaches();
    DocResourceParser::getReferenceRoots();
    DocResourceParser::restoreDefaultSettings();
    EXPECT_THAT(host->questions(), IsEmpty());
}

} // namespace
} // namespace docparser_tests
