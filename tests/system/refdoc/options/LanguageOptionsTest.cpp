#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/serialize.hpp>

namespace refdoc_tests {
namespace {

using testing::HasSubstr;

class LanguageOptionsTest : public RefdocTest {
protected:
    // The current language and the locale suffixes, as JSON.
    std::string languages(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"products", "--json"});
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        const boost::json::value products = document(outcome.out);
        return boost::json::serialize(products.at("language")) + " " +
               boost::json::serialize(products.at("localeSuffixes"));
    }

    std::string purpose(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"show", "P", "--json"});
        const boost::json::value shown = document(run(arguments).out);
        return std::string(
            shown.at_pointer("/resources/p/items/a.html/0/refPurpose").as_string().c_str());
    }
};

constexpr const char* kManifest =
    R"({"docLanguage": "de", "supportedDocLanguages": ["en", "de", "ja"]})";

TEST_F(LanguageOptionsTest, WithoutManifestEnglishIsTheOnlyLanguage) {
    EXPECT_EQ(languages({}), R"("en" [])");
}

TEST_F(LanguageOptionsTest, WithoutOptionsTheManifestDecides) {
    addManifest(kManifest);
    EXPECT_EQ(languages({}), R"("de" ["_de","_ja"])");
}

TEST_F(LanguageOptionsTest, LangReplacesTheLanguageOfTheManifest) {
    addManifest(kManifest);
    EXPECT_EQ(languages({"--lang", "ja"}), R"("ja" ["_de","_ja"])");
    EXPECT_EQ(languages({"--lang", "en"}), R"("en" ["_de","_ja"])");
}

TEST_F(LanguageOptionsTest, UnsupportedLangJoinsTheSupportedLanguages) {
    addManifest(kManifest);
    EXPECT_EQ(languages({"--lang", "zh_CN"}), R"("zh_CN" ["_de","_ja","_zh_CN"])");
    EXPECT_EQ(languages({"--lang", "fr", "--langs", "en,it"}), R"("fr" ["_it","_fr"])");
    EXPECT_EQ(languages({"--lang", "it", "--langs", "en,it"}), R"("it" ["_it"])");
}

TEST_F(LanguageOptionsTest, LangsAloneKeepsTheLanguageOfTheManifest) {
    addManifest(kManifest);
    EXPECT_EQ(languages({"--langs", "en,fr"}), R"("de" ["_fr"])");
}

TEST_F(LanguageOptionsTest, LangsMayRepeatLanguagesOrBeEmpty) {
    EXPECT_EQ(languages({"--langs", "ja,en,ja"}), R"("en" ["_ja","_ja"])");
    EXPECT_EQ(languages({"--langs", "de,,ja"}), R"("en" ["_de","_","_ja"])");
    EXPECT_EQ(languages({"--langs", ""}), R"("en" [])");
    EXPECT_EQ(languages({"--langs="}), R"("en" [])");
}

TEST_F(LanguageOptionsTest, EmptyStringIsTheEmptyLanguage) {
    EXPECT_EQ(languages({"--lang", ""}), R"("" ["_"])");
    EXPECT_EQ(languages({"--lang="}), R"("" ["_"])");
}

TEST_F(LanguageOptionsTest, ShowOverlaysTheFileOfTheLanguage) {
    addResource("P", section("p", R"({"href": "a.html", "refpurpose": "English"})"));
    addResource("P_ja", section("p", R"({"href": "a.html", "refpurpose": "日本語"})"));
    addResource("P_", section("p", R"({"href": "a.html", "refpurpose": "nameless"})"));
    EXPECT_EQ(purpose({}), "English");
    EXPECT_EQ(purpose({"--lang", "ja"}), "日本語");
    EXPECT_EQ(purpose({"--lang", "fr"}), "English");
    EXPECT_EQ(purpose({"--lang", ""}), "nameless");
}

TEST_F(LanguageOptionsTest, LookupReadsTheFilesOfTheLanguage) {
    addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "English"})"));
    addLookup("P_ja", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "日本語"})"));
    EXPECT_THAT(run({"lookup", "a"}).out, HasSubstr("English"));
    EXPECT_THAT(run({"lookup", "a", "--lang", "ja"}).out, HasSubstr("日本語"));
}

TEST_F(LanguageOptionsTest, LangWorksWithoutAnInstallFolder) {
    addResource("P_de", section("p", R"({"href": "a.html", "refpurpose": "Deutsch"})"));
    const Outcome outcome = runProgram({"--root", path("help"), "--lang", "de", "show", "P"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("Deutsch"));
}

} // namespace
} // namespace refdoc_tests
