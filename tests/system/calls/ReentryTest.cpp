#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <future>
#include <stdexcept>
#include <string>
#include <utility>

namespace docparser_tests {
namespace {

// Host services that call the library while the library calls them.
class ReentryTest : public SystemTest {
protected:
    ReentryTest() {
        addApi("Orchard.json", text);
        addLookup("Orchard.json", ResourceText("orchard").str());
        host->packages = {u"sensorkit"};
    }

    // Calls what every service may call.
    void useRootsAndFiles() const {
        const auto roots = DocResourceParser::getReferenceRoots();
        EXPECT_EQ(roots->root, root());
        DocResourceParser::setReferenceRoot(roots->root);
        EXPECT_EQ(
            DocResourceParser::getAllProducts(roots->lookupFolder, {}, u"_en").jsonProducts.size(),
            1U);
    }

    // Calls every operation that calls the host.
    void askEverything() const {
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
        EXPECT_FALSE(DocResourceParser::isProductInstalled(u"orchard"));
        EXPECT_TRUE(DocResourceParser::isProductInstalled(u"sensorkit"));
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 1U);
        EXPECT_EQ(findResources(u"Absent"), std::nullopt);
    }

    const std::string text = resourceText("orchard", {});
    const Resources found = {{u"orchard", section(u"orchard", u"Orchard", {})}};
};

TEST_F(ReentryTest, EveryServiceMayUseRootsAndListFiles) {
    for (auto* hook :
         {&host->onLanguage, &host->onProducts, &host->onPackageRoot, &host->onPackages}) {
        int answers = 0;
        *hook = [&] {
            ++answers;
            useRootsAndFiles();
        };
        runWatched([&] { askEverything(); });
        EXPECT_GT(answers, 0);
        *hook = nullptr;
        DocResourceParser::clearSupportPackageCaches();
    }
}

TEST_F(ReentryTest, InstallationServicesMayReadResources) {
    for (auto* hook : {&host->onProducts, &host->onPackageRoot, &host->onPackages}) {
        int answers = 0;
        *hook = [&] {
            ++answers;
            EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
        };
        runWatched([&] { askEverything(); });
        EXPECT_GT(answers, 0);
        *hook = nullptr;
        DocResourceParser::clearSupportPackageCaches();
    }
}

TEST_F(ReentryTest, LanguageServiceMayCallEveryOperation) {
    host->onLanguage = [this] {
        const auto roots = DocResourceParser::getReferenceRoots();
        DocResourceParser::restoreDefaultSettings();
        DocResourceParser::setReferenceRoot(roots->root);
        DocResourceParser::setTestProducts({}, {u"sensorkit"});
        EXPECT_TRUE(DocResourceParser::isProductInstalled(u"sensorkit"));
        DocResourceParser::setSupportPackageRoot(u"F");
        DocResourceParser::clearSupportPackageCaches();
        useRootsAndFiles();
    };
    runWatched([this] { askEverything(); });
}

TEST_F(ReentryTest, TheCatalogueMayAskForSupportPackages) {
    host->onProducts = [] {
        EXPECT_EQ(DocResourceParser::getHardwareSupportPackages()->size(), 1U);
        EXPECT_FALSE(DocResourceParser::getSupportPackageRoot()->empty());
        DocResourceParser::clearSupportPackageCaches();
    };
    runWatched([this] { askEverything(); });
}

// Another thread restores the defaults while the package query is running.
TEST_F(ReentryTest, PackageQueryMayReadRootsWhileDefaultsAreRestored) {
    runWatched([this] {
        std::promise<void> begun;
        std::future<void> restoring;
        host->onPackages = [&] {
            restoring = std::async(std::launch::async, [&begun] {
                begun.set_value();
                DocResourceParser::restoreDefaultSettings();
            });
            begun.get_future().wait();
            for (int question = 0; question < 20'000; ++question)
                DocResourceParser::getReferenceRoots();
        };
        EXPECT_EQ(DocResourceParser::getHardwareSupportPackages()->size(), 1U);
        restoring.get();
    });
}

TEST_F(ReentryTest, AsksAgainAfterServiceFails) {
    bool hasFailed = false;
    host->onPackageRoot = [&] {
        useRootsAndFiles();
        if (!std::exchange(hasFailed, true))
            throw std::runtime_error("the root reader fails once");
    };
    runWatched([this] {
        EXPECT_THROW(DocResourceParser::getSupportPackageRoot(), std::runtime_error);
        EXPECT_EQ(*DocResourceParser::getSupportPackageRoot(),
                  host->packageRoot + native(u"/help/docCatalog/referenceapi"));
    });
}

} // namespace
} // namespace docparser_tests
