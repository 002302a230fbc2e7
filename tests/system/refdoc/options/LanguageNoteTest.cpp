#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Arguments = std::vector<std::string>;

class UnsupportedLanguageTest : public RefdocTest {
protected:
    UnsupportedLanguageTest() {
        addResource("P", section("p", R"({"href": "a.html", "refpurpose": "b"})"));
        addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    }

    static constexpr const char* kManifest = R"({"supportedDocLanguages": ["en", "de", "ja"]})";
    static constexpr const char* kNote = "refdoc: note: \"fr\" is not a supported language "
                                         "(en, de, ja); it is added for this call\n";
};

TEST_F(UnsupportedLanguageTest, NoteListsTheSupportedLanguagesAndIsNoFailure) {
    addManifest(kManifest);
    for (const Arguments& command :
         {Arguments{"show", "P"}, {"show", "P", "a.html"}, {"lookup"}, {"products"}}) {
        Arguments arguments{"--lang", "fr"};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, kNote);
        EXPECT_THAT(outcome.out, Not(IsEmpty()));
    }
}

TEST_F(UnsupportedLanguageTest, NotePrecedesTheComplaints) {
    addManifest(kManifest);
    const Outcome outcome = run({"--lang", "fr", "lookup", "zzz"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, std::string(kNote) + "refdoc: no entry \"zzz\" in the lookup index; "
                                                "see refdoc lookup\n");
}

TEST_F(UnsupportedLanguageTest, JsonOutputHasNoNote) {
    addManifest(kManifest);
    EXPECT_THAT(run({"--lang", "fr", "--json", "show", "P"}).err, IsEmpty());
    EXPECT_THAT(run({"--lang", "fr", "--jsonl", "lookup"}).err, IsEmpty());
}

TEST_F(UnsupportedLanguageTest, SupportedLanguagesAndEnglishGetNoNote) {
    addManifest(kManifest);
    EXPECT_THAT(run({"show", "P"}).err, IsEmpty());
    EXPECT_THAT(run({"--lang", "ja", "show", "P"}).err, IsEmpty());
    EXPECT_THAT(run({"--lang", "en", "--langs", "de", "show", "P"}).err, IsEmpty());
}

TEST_F(UnsupportedLanguageTest, LangsReplacesTheListOfTheManifest) {
    EXPECT_EQ(run({"--lang", "fr", "--langs", "en,de,ja", "show", "P"}).err, kNote);
    addManifest(kManifest);
    EXPECT_THAT(run({"--lang", "fr", "--langs", "en,fr", "show", "P"}).err, IsEmpty());
}

TEST_F(UnsupportedLanguageTest, WithoutAListThereIsNoNote) {
    EXPECT_THAT(run({"--lang", "fr", "show", "P"}).err, IsEmpty());
}

class EnglishFallbackTest : public RefdocTest {
protected:
    static constexpr const char* kGraft = R"({"href": "graft.html", "refpurpose": "Join trees"})";
    static constexpr const char* kPrune = R"({"href": "prune.html", "refpurpose": "Cut back"})";
    static constexpr const char* kGerman = R"({"href": "graft.html", "refpurpose": "Veredeln"})";

    static std::string support(const std::string& items) {
        return R"(, "supportPackages": [)" + section("kit", items) + "]";
    }
};

TEST_F(EnglishFallbackTest, RecordsThatTheTranslationLacksAreMarked) {
    addResource("P", section("p", std::string(kGraft) + "," + kPrune));
    addResource("P_de", section("p", kGerman));
    EXPECT_EQ(run({"--lang", "de", "show", "P"}).out, "p name\n"
                                                      "======\n"
                                                      "help folder    p\n"
                                                      "base code      p code\n"
                                                      "help location  p/help\n"
                                                      "\n"
                                                      "graft.html\n"
                                                      "----------\n"
                                                      "  Veredeln\n"
                                                      "  link  graft.html\n"
                                                      "\n"
                                                      "prune.html\n"
                                                      "----------\n"
                                                      "  English: not translated into \"de\"\n"
                                                      "  Cut back\n"
                                                      "  link  prune.html\n");
}

TEST_F(EnglishFallbackTest, UntranslatedSectionIsMarkedOnce) {
    addResource("P", section("p", kGraft, support(std::string(kGraft) + "," + kPrune)));
    addResource("P_de", section("p", kGerman));
    const std::string out = run({"--lang", "de", "show", "P"}).out;
    EXPECT_THAT(out, HasSubstr("help location  kit/help\n"
                               "English: nothing of this is translated into \"de\"\n"));
    EXPECT_THAT(out, Not(HasSubstr("not translated into")));
}

TEST_F(EnglishFallbackTest, UntranslatedProductIsMarked) {
    addResource("P", section("p", kGraft));
    const std::string note = "English: nothing of this is translated into \"de\"\n";
    EXPECT_THAT(run({"--lang", "de", "show", "P"}).out, HasSubstr(note));
    addResource("P_de", "{");
    EXPECT_THAT(run({"--lang", "de", "show", "P"}).out, HasSubstr(note));
}

TEST_F(EnglishFallbackTest, TranslationEqualToEnglishIsNotMarked) {
    addResource("P", section("p", kGraft));
    addResource("P_de", section("p", kGraft));
    EXPECT_THAT(run({"--lang", "de", "show", "P"}).out, Not(HasSubstr("English:")));
}

TEST_F(EnglishFallbackTest, UnusedTranslationIsMarked) {
    addResource("P", section("p", kGraft));
    add("support/P_de.json", section("p", kGerman));
    const std::string out =
        run({"--lang", "de", "--support-folder", path("support"), "show", "P"}).out;
    EXPECT_THAT(out, HasSubstr("  English: not translated into \"de\"\n  Join trees\n"));
}

TEST_F(EnglishFallbackTest, NeitherEnglishNorRecordsOnlyInTheTranslationAreMarked) {
    addResource("P", section("p", kGraft));
    EXPECT_THAT(run({"show", "P"}).out, Not(HasSubstr("English:")));
    addResource("Q_de", section("q", kGerman));
    EXPECT_THAT(run({"--lang", "de", "show", "Q"}).out, Not(HasSubstr("English:")));
}

TEST_F(EnglishFallbackTest, SecondReadOfTheTranslationIsNotLogged) {
    addResource("P", section("p", kGraft));
    addResource("P_de", section("p", kGerman));
    const std::string folder = "[16] Reading file: " + path("help/docCatalog/referenceapi/");
    EXPECT_EQ(run({"--verbose", "--lang", "de", "show", "P"}).err,
              folder + "P.json\n" + folder + "P_de.json\n");
}

TEST_F(EnglishFallbackTest, JsonHasNoMarks) {
    addResource("P", section("p", kGraft));
    EXPECT_THAT(run({"--lang", "de", "--json", "show", "P"}).out, Not(HasSubstr("English")));
    EXPECT_THAT(run({"--lang", "de", "--jsonl", "show", "P"}).out, Not(HasSubstr("English")));
}

} // namespace
} // namespace refdoc_tests
