#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "platform/HostServices.hpp"
#include "platform/InstallationManifest.hpp"
#include "platform/i18n/Converter.hpp"
#include "tests/support/LogCapture.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;
using testing::ElementsAre;

const std::u16string kSamples = fl::i18n::to_ustring(SAMPLES_FOLDER);

// Answers from the manifest of the samples, except for the language.
class SampleHost final : public platform::HostServices {
public:
    explicit SampleHost(std::u16string language) : language_(std::move(language)) {}

    std::u16string installPath() const override { return manifest_.installPath(); }
    std::u16string docLanguage() const override { return language_; }
    std::vector<std::u16string> supportedDocLanguages() const override {
        return manifest_.supportedDocLanguages();
    }
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return manifest_.installedTopLevelDocProducts();
    }
    std::u16string supportPackageRoot() const override { return manifest_.supportPackageRoot(); }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override {
        return manifest_.installedHardwareSupportPackages(root);
    }

private:
    platform::InstallationManifest manifest_{kSamples};
    std::u16string language_;
};

class SamplesTest : public testing::TestWithParam<const char16_t*> {
public:
    SamplesTest() {
        platform::setHostServices(std::make_shared<SampleHost>(GetParam()));
        DocResourceParser::restoreDefaultSettings();
        DocResourceParser::setReferenceRoot(kSamples + u"/help");
    }
    ~SamplesTest() override {
        platform::setHostServices(nullptr);
        DocResourceParser::restoreDefaultSettings();
    }

protected:
    template <class Map>
    static std::set<std::u16string> keysOf(const Map& map) {
        std::set<std::u16string> keys;
        for (const auto& [key, value] : map)
            keys.insert(key);
        return keys;
    }
};

TEST_P(SamplesTest, EveryProductIsFound) {
    std::size_t count = 0;
    for (const std::u16string product : {u"Orchard", u"Cellar", u"HiveScale"}) {
        for (const auto& [key, section] : DocResourceParser::getResourceFile(product)) {
            EXPECT_EQ(section.header.getProduct(), product);
            for (const auto& [href, items] : section.items)
                count += items.size();
        }
    }
    EXPECT_GE(count, 50U);
}

TEST_P(SamplesTest, ManifestDecidesWhichSectionsAreInstalled) {
    const LogCapture log;
    const auto lookups = DocResourceParser::getResourceLookupFiles();
    EXPECT_EQ(keysOf(lookups.installed),
              (std::set<std::u16string>{u"cellar", u"hivescale", u"orchard", u"sensorkit"}));
    std::set<std::u16string> notInstalled = {u"market", u"rainmast"};
    if (std::u16string(GetParam()) == u"de")
        notInstalled.insert(u"sortenliste");
    EXPECT_EQ(keysOf(lookups.notInstalled), notInstalled);
    // No file or entry causes a failure.
    for (const std::string& message : log.messages())
        EXPECT_THAT(message, testing::StartsWith("Reading file: "));
}

TEST_P(SamplesTest, PackageAndPlainFileOfCellarAreMerged) {
    const auto lookups = DocResourceParser::getResourceLookupFiles();
    const auto& items = lookups.installed.at(u"cellar").items;
    EXPECT_EQ(items.at(u"batch").size(), 2U);
    EXPECT_EQ(items.at(u"blend").size(), 2U);
    EXPECT_EQ(items.at(u"press").size(), 1U);
    EXPECT_EQ(items.at(u"volume").size(), 1U);
}

// Everything that a caller and a log sink observe of all retrievals.
auto retrieveEverything() {
    const LogCapture log;
    std::vector<decltype(DocResourceParser::getResourceFile(u""))> resources;
    for (const std::u16string product : {u"Orchard", u"Cellar", u"HiveScale"})
        resources.push_back(DocResourceParser::getResourceFile(product));
    auto lookups = DocResourceParser::getResourceLookupFiles();
    return std::tuple(std::move(resources), std::move(lookups), log.lines());
}

TEST_P(SamplesTest, AccountChangesNeitherResultsNorLog) {
    const auto unobserved = retrieveEverything();
    LoadAccount account;
    const LoadAccount::Scope scope(account);
    EXPECT_TRUE(retrieveEverything() == unobserved);
    EXPECT_TRUE(account.isComplete);
    EXPECT_GT(account.files.size(), 10U);
}

INSTANTIATE_TEST_SUITE_P(Languages, SamplesTest, testing::Values(u"en", u"de", u"ja"),
                         [](const auto& test) { return fl::i18n::to_string(test.param); });

} // namespace
} // namespace docparser_tests
