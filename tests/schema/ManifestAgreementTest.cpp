// Compares the schema of the installation manifest with the class that reads manifests.

#include "platform/InstallationManifest.hpp"
#include "tests/schema/Agreement.hpp"
#include "tests/schema/DamagedDocuments.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <stdexcept>

namespace docparser_tests {
namespace {

class ManifestAgreement : public testing::Test {
protected:
    bool isRead(const std::string& text) const {
        writeAnew(folder_, "installation.json", text);
        try {
            platform::InstallationManifest(folder_.u16()).docLanguage();
            return true;
        } catch (const std::runtime_error&) {
            return false;
        }
    }

    static boost::json::value manifest() {
        return boost::json::parse(R"({
            "docLanguage": "de", "supportedDocLanguages": ["en", "de"],
            "topLevelProducts": [
                {"shortName": "orchard", "displayName": "Orchard", "helpLocation": "help",
                 "baseCode": "OR", "altShortName": "or", "availability": "desktop",
                 "families": ["Plots"]},
                {"shortName": "cellar"}],
            "supportPackageRoot": "packages", "hardwareSupportPackages": ["kit"]})");
    }

    const TemporaryFolder folder_;
    Agreement agreement_{"installation.schema.json",
                         [this](const std::string& text) { return isRead(text); }};
};

TEST_F(ManifestAgreement, SchemaAndReaderAgreeOnEveryDocumentWithOneDamage) {
    forEachDamage(manifest(), [this](const auto& document, const auto& change) {
        agreement_.check(document, change);
    });
    agreement_.expectBothVerdicts(50);
}

TEST_F(ManifestAgreement, SchemaAndReaderAgreeOnCombinationsOfDamages) {
    std::mt19937 random(20240612);
    for (int round = 0; round < 2000; ++round)
        agreement_.check(damagedAtRandom(manifest(), random), "round " + std::to_string(round));
    agreement_.expectBothVerdicts(200);
}

} // namespace
} // namespace docparser_tests
