#include "platform/LanguageOverrides.hpp"

#include "platform/InstallationManifest.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace docparser_tests {
namespace {

using platform::LanguageOverrides;
using Languages = std::vector<std::u16string>;

class LanguageOverridesTest : public testing::Test {
protected:
    LanguageOverridesTest() {
        folder.write("installation.json",
                     R"({"docLanguage": "de", "supportedDocLanguages": ["en", "de"],
                          "topLevelProducts": [{"shortName": "orchard"}],
                          "supportPackageRoot": "kits", "hardwareSupportPackages": ["robots"]})");
    }

    TemporaryFolder folder;
    std::shared_ptr<const platform::HostServices> base =
        std::make_shared<platform::InstallationManifest>(folder.u16());
};

TEST_F(LanguageOverridesTest, AbsentLanguagesAreThoseOfTheOtherHost) {
    const LanguageOverrides services(base, std::nullopt, std::nullopt);
    EXPECT_EQ(services.docLanguage(), u"de");
    EXPECT_EQ(services.supportedDocLanguages(), (Languages{u"en", u"de"}));
}

TEST_F(LanguageOverridesTest, CurrentLanguageJoinsTheSupportedOnesOnce) {
    const LanguageOverrides french(base, u"fr", std::nullopt);
    EXPECT_EQ(french.docLanguage(), u"fr");
    EXPECT_EQ(french.supportedDocLanguages(), (Languages{u"en", u"de", u"fr"}));
    const LanguageOverrides japanese(base, u"ja", Languages{u"ja", u"en"});
    EXPECT_EQ(japanese.supportedDocLanguages(), (Languages{u"ja", u"en"}));
}

TEST_F(LanguageOverridesTest, EverythingElseIsThatOfTheOtherHost) {
    const LanguageOverrides services(base, u"fr", Languages{});
    EXPECT_EQ(services.installPath(), folder.u16());
    EXPECT_EQ(services.installedTopLevelDocProducts(), base->installedTopLevelDocProducts());
    EXPECT_EQ(services.supportPackageRoot(), base->supportPackageRoot());
    EXPECT_EQ(services.installedHardwareSupportPackages(u""),
              std::unordered_set<std::u16string>{u"robots"});
}

} // namespace
} // namespace docparser_tests
