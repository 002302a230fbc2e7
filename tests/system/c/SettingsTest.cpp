// The settings of the C interface.

#include "tests/system/FakeHost.hpp"
#include "tests/system/c/CInterfaceTest.hpp"

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <vector>

namespace docparser_tests {
namespace {

constexpr const char* kManifest = R"({"docLanguage": "de", "supportedDocLanguages": ["en", "de"],
                                      "supportPackageRoot": "kits"})";

class CSettingsTest : public CInterfaceTest {
protected:
    CSettingsTest() {
        for (const char* root : {"help", "other"}) {
            const std::string full = std::string(root) + "/docCatalog/referenceapi/";
            addProduct(full + "P.json");
            addProduct(full + "P_de.json");
            addProduct(full + "P_ja.json");
        }
        addProduct("kits/help/docCatalog/referenceapi/K_de.json");
        addProduct("shelf/K_de.json");
        addManifest(kManifest);
        EXPECT_EQ(docparser_set_install_folder(path().c_str()), DOCPARSER_OK);
    }

    // Changes every setting.
    void changeAll() const {
        EXPECT_EQ(docparser_set_root(path("other").c_str()), DOCPARSER_OK);
        EXPECT_EQ(docparser_set_support_folder(path("shelf").c_str()), DOCPARSER_OK);
        EXPECT_EQ(docparser_set_language("ja", nullptr, 0), DOCPARSER_OK);
    }

    static void expectSettingsOfInstallation() {
        EXPECT_EQ(purposeOf("P"), "help/docCatalog/referenceapi/P_de.json");
        EXPECT_EQ(purposeOf("K"), "kits/help/docCatalog/referenceapi/K_de.json");
    }

    // The names of the lookup files that are read, which are all malformed.
    static std::vector<std::string> lookupFilesRead() {
        const CAnswer answer = index();
        std::vector<std::string> names;
        for (const auto& file : answer.account->at("files").as_array()) {
            if (file.at("fate") == "malformed")
                names.push_back(
                    std::filesystem::path(file.at("path").as_string().c_str()).filename().string());
        }
        std::ranges::sort(names);
        return names;
    }
};

TEST_F(CSettingsTest, InstallFolderSetsRootLanguageAndSupportFolder) {
    expectSettingsOfInstallation();
}

TEST_F(CSettingsTest, InstallFolderDropsEarlierSettings) {
    changeAll();
    EXPECT_EQ(purposeOf("P"), "other/docCatalog/referenceapi/P_ja.json");
    EXPECT_EQ(docparser_set_install_folder(path().c_str()), DOCPARSER_OK);
    expectSettingsOfInstallation();
}

TEST_F(CSettingsTest, NullRestoresEachSettingOfTheInstallation) {
    changeAll();
    EXPECT_EQ(docparser_set_language(nullptr, nullptr, 0), DOCPARSER_OK);
    EXPECT_EQ(purposeOf("P"), "other/docCatalog/referenceapi/P_de.json");
    EXPECT_EQ(purposeOf("K"), "shelf/K_de.json");
    EXPECT_EQ(docparser_set_root(nullptr), DOCPARSER_OK);
    EXPECT_EQ(purposeOf("P"), "help/docCatalog/referenceapi/P_de.json");
    EXPECT_EQ(purposeOf("K"), "shelf/K_de.json");
    EXPECT_EQ(docparser_set_support_folder(nullptr), DOCPARSER_OK);
    expectSettingsOfInstallation();
}

TEST_F(CSettingsTest, FolderWithoutManifestIsEnglish) {
    std::filesystem::remove(folder.path() / "installation.json");
    EXPECT_EQ(docparser_set_install_folder(path().c_str()), DOCPARSER_OK);
    EXPECT_EQ(purposeOf("P"), "help/docCatalog/referenceapi/P.json");
}

TEST_F(CSettingsTest, CurrentLanguageJoinsTheSupportedOnes) {
    for (const char* name : {"P.json", "P_de.json", "P_ja.json", "P_fr.json"})
        folder.write(std::filesystem::path("help/docCatalog/referenceapi_lookup") / name, "{}");
    using Names = std::vector<std::string>;
    EXPECT_EQ(lookupFilesRead(), (Names{"P.json", "P_de.json", "P_fr.json", "P_ja.json"}));
    EXPECT_EQ(docparser_set_language("ja", nullptr, 0), DOCPARSER_OK);
    EXPECT_EQ(lookupFilesRead(), (Names{"P.json", "P_fr.json", "P_ja.json"}));
    const std::array<const char*, 2> supported{"en", "fr"};
    EXPECT_EQ(docparser_set_language("ja", supported.data(), supported.size()), DOCPARSER_OK);
    EXPECT_EQ(lookupFilesRead(), (Names{"P.json", "P_de.json", "P_ja.json"}));
    EXPECT_EQ(docparser_set_language(nullptr, supported.data(), 0), DOCPARSER_OK);
    EXPECT_EQ(lookupFilesRead(), (Names{"P.json", "P_de.json", "P_fr.json", "P_ja.json"}));
}

TEST_F(CSettingsTest, MalformedManifestIsReportedAndChangesNothing) {
    folder.write("broken/installation.json", "{\n  \"docLanguage\": 7}");
    EXPECT_EQ(docparser_set_install_folder(path("broken").c_str()), DOCPARSER_FAILED);
    EXPECT_EQ(docparser_last_error(),
              path("broken/installation.json") + ": /docLanguage: a string was expected");
    expectSettingsOfInstallation();
}

TEST_F(CSettingsTest, NamesMayHaveAnyCharacters) {
    addProduct("Gärten 木 𝑦/docCatalog/referenceapi/Größe.json");
    EXPECT_EQ(docparser_set_root(path("Gärten 木 𝑦").c_str()), DOCPARSER_OK);
    EXPECT_EQ(purposeOf("Größe"), "Gärten 木 𝑦/docCatalog/referenceapi/Größe.json");
}

// A host in the same program that changes a setting when it is destroyed.
class CallingHost final : public FakeHost {
public:
    ~CallingHost() override { EXPECT_EQ(docparser_set_root(nullptr), DOCPARSER_OK); }
};

TEST_F(CSettingsTest, HostMayCallTheInterfaceWhenItIsReplaced) {
    platform::setHostServices(std::make_shared<const CallingHost>());
    EXPECT_EQ(docparser_set_language("ja", nullptr, 0), DOCPARSER_OK);
    platform::setHostServices(std::make_shared<const CallingHost>());
    EXPECT_EQ(docparser_set_install_folder(path().c_str()), DOCPARSER_OK);
    expectSettingsOfInstallation();
}

} // namespace
} // namespace docparser_tests
