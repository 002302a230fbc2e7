#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/serialize.hpp>

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

TEST_F(UnsupportedLanguageTest, NoteNamesTheNearestLanguage) {
    addManifest(kManifest);
    const auto note = [](const std::string& language) {
        return "refdoc: note: \"" + language +
               "\" is not a supported language (en, de, ja); it is added for this call; did you "
               "mean \"de\"?\n";
    };
    for (const char* language : {"DE", "de-DE", "de_AT"})
        EXPECT_EQ(run({"--lang", language, "show", "P"}).err, note(language));
    EXPECT_EQ(run({"show", "P"}, {.variables = {{"REFDOC_LANG", "DE"}}}).err, note("DE"));
}

TEST_F(UnsupportedLanguageTest, WithoutAListTheNamesOfTheFilesDecide) {
    addResource("P_de", section("p", ""));
    addResource("Q_ja", section("q", ""));
    EXPECT_EQ(
        run({"--lang", "DE", "show", "P"}).err,
        "refdoc: note: \"DE\" is not a supported language (en, de); it is added for this call; "
        "did you mean \"de\"?\n");
    EXPECT_THAT(run({"--lang", "de", "show", "P"}).err, IsEmpty());
    EXPECT_THAT(run({"--lang", "ja", "show", "P"}).err, IsEmpty());
}

TEST_F(UnsupportedLanguageTest, StrictLanguageIsWrongUsageInAllFormats) {
    addManifest(kManifest);
    for (const Arguments& command : {Arguments{"show", "P"},
                                     {"lookup"},
                                     {"products", "--json"},
                                     {"check"},
                                     {"check", path()}}) {
        Arguments arguments{"--lang", "de-DE", "--lang-strict"};
        arguments.insert(arguments.end(), command.begin(), command.end());
        EXPECT_EQ(
            run(arguments),
            (Outcome{2, "",
                     "refdoc: \"de-DE\" is not a supported language (en, de, ja); did you mean "
                     "\"de\"?; see refdoc --help\n"}));
    }
    for (const char* language : {"de", "en"})
        EXPECT_EQ(run({"--lang", language, "--lang-strict", "show", "P"}).status, 0);
    EXPECT_EQ(run({"--lang-strict", "show", "P"}).status, 0);
}

TEST_F(UnsupportedLanguageTest, StrictLanguageNeedsAListOrAFile) {
    EXPECT_EQ(run({"--lang", "de", "--lang-strict", "show", "P"}).status, 2);
    addLookup("P_de", section("p", ""));
    EXPECT_EQ(run({"--lang", "de", "--lang-strict", "show", "P"}).status, 0);
}

class UncountedTranslationsTest : public RefdocTest {
protected:
    UncountedTranslationsTest() {
        for (const char* name : {"P", "P_de", "P_ja", "Q", "Q_de", "foo_bar"})
            addResource(name, section("p", R"({"href": "a.html", "refpurpose": "b"})"));
        addLookup("Q_ja", section("p", ""));
    }

    Outcome runAtRoot(Arguments arguments) const {
        arguments.insert(arguments.begin(), {"--root", path("help")});
        return runProgram(arguments);
    }

    std::string localeSuffixes(const Arguments& options) const {
        Arguments arguments = options;
        arguments.insert(arguments.end(), {"products", "--json"});
        return boost::json::serialize(document(runAtRoot(arguments).out).at("localeSuffixes"));
    }

    static constexpr const char* kNote =
        "refdoc: note: several products also exist with \"_de\" or \"_ja\" after their names; "
        "--langs auto reads these files as translations\n";
};

TEST_F(UncountedTranslationsTest, NoteNamesTheSuffixesOnce) {
    for (const Arguments& command : {Arguments{"show", "P"}, {"lookup"}, {"products"}})
        EXPECT_EQ(runAtRoot(command).err, kNote) << command.front();
}

TEST_F(UncountedTranslationsTest, ThereIsNoNoteIfTheLanguagesAreNamed) {
    EXPECT_THAT(runAtRoot({"--langs", "en,de,ja", "show", "P"}).err, IsEmpty());
    EXPECT_THAT(runAtRoot({"--langs", "auto", "show", "P"}).err, IsEmpty());
    EXPECT_THAT(runAtRoot({"show", "P", "--json"}).err, IsEmpty());
    addManifest("{}");
    EXPECT_THAT(run({"show", "P"}).err, IsEmpty());
}

TEST_F(UncountedTranslationsTest, NoteNeedsTwoProductsWithTheSuffix) {
    addResource("P_fr", section("p", ""));
    EXPECT_EQ(runAtRoot({"show", "P"}).err, kNote);
    EXPECT_THAT(runAtRoot({"--lang", "de", "show", "P"}).err, HasSubstr("with \"_ja\" after"));
}

TEST_F(UncountedTranslationsTest, AutoInfersTheLanguagesFromAllFolders) {
    EXPECT_EQ(localeSuffixes({}), "[]");
    EXPECT_EQ(localeSuffixes({"--langs", "auto"}), R"(["_de","_ja"])");
    add("help/docCatalog/referenceapi_lookup/Pack.zip", "");
    add("help/docCatalog/referenceapi_lookup/Pack_zh_CN.zip", "");
    EXPECT_EQ(localeSuffixes({"--langs", "auto"}), R"(["_de","_ja","_zh_CN"])");
    EXPECT_EQ(localeSuffixes({"--langs", "auto", "--lang", "fr"}),
              R"(["_de","_ja","_zh_CN","_fr"])");
}

TEST_F(UncountedTranslationsTest, AutoAlsoServesCheckedPaths) {
    EXPECT_EQ(runProgram({"check", "--langs", "auto", path("help")}).out,
              runProgram({"check", "--langs", "en,de,ja", path("help")}).out);
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
