#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/serialize.hpp>

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

using Arguments = std::vector<std::string>;
using Variables = std::map<std::string, std::string>;

// Two install folders, "one" and "two", and a reference root without install folder, "bare".
class LocationTest : public RefdocTest {
protected:
    LocationTest() {
        for (const char* folder : {"one", "two"}) {
            add(std::string(folder) + "/installation.json",
                R"({"docLanguage": "de", "supportedDocLanguages": ["en", "de", "ja"]})");
            add(std::string(folder) + "/help/docCatalog/referenceapi/P.json", kProduct);
        }
        add("bare/docCatalog/referenceapi/P.json", kProduct);
    }

    // The install folder, the root and the language with their origins, one on each line.
    std::string locations(Arguments arguments, const Variables& variables,
                          const std::string& folder = {}) const {
        arguments.insert(arguments.end(), {"products", "--json"});
        const Outcome outcome =
            runProgram(arguments, {.variables = variables, .folder = path(folder)});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        const boost::json::value products = document(outcome.out);
        const auto line = [&](const char* value, const char* origin) {
            return std::string(products.at_pointer(value).as_string().c_str()) + ": " +
                   products.at("origins").at(origin).as_string().c_str() + "\n";
        };
        return line("/installFolder", "installFolder") + line("/roots/root", "root") +
               line("/language", "language");
    }

    std::string lines(const std::string& install, const std::string& installOrigin,
                      const std::string& root, const std::string& rootOrigin,
                      const std::string& language = "de: default") const {
        return install + ": " + installOrigin + "\n" + root + ": " + rootOrigin + "\n" + language +
               "\n";
    }

    const std::string kProduct = section("p", R"({"href": "a.html", "refpurpose": "b"})");
    const std::string one = path("one");
    const std::string oneHelp = path("one/help");
    const std::string two = path("two");
    const std::string twoHelp = path("two/help");
    const std::string bare = path("bare");
    const std::string installVariable = "environment variable REFDOC_INSTALL";
    const std::string rootVariable = "environment variable REFDOC_ROOT";
};

TEST_F(LocationTest, EnvironmentReplacesMissingOptions) {
    EXPECT_EQ(locations({}, {{"REFDOC_INSTALL", one}}),
              lines(one, installVariable, oneHelp, installVariable));
    EXPECT_EQ(locations({}, {{"REFDOC_INSTALL", one}, {"REFDOC_ROOT", bare}}),
              lines(one, installVariable, bare, rootVariable));
    EXPECT_EQ(locations({}, {{"REFDOC_INSTALL", one}, {"REFDOC_LANG", "ja"}}),
              lines(one, installVariable, oneHelp, installVariable,
                    "ja: environment variable REFDOC_LANG"));
}

TEST_F(LocationTest, OptionsWinOverTheEnvironment) {
    const Variables all{{"REFDOC_INSTALL", two}, {"REFDOC_ROOT", twoHelp}, {"REFDOC_LANG", "ja"}};
    EXPECT_EQ(locations({"--install", one, "--lang", "en"}, all),
              lines(one, "option --install", oneHelp, "option --install", "en: option --lang"));
    EXPECT_EQ(locations({"--root", bare}, all), lines(two, installVariable, bare, "option --root",
                                                      "ja: environment variable REFDOC_LANG"));
    EXPECT_EQ(locations({"--install", one, "--root", bare}, {}),
              lines(one, "option --install", bare, "option --root"));
}

TEST_F(LocationTest, EmptyVariablesAreNotSet) {
    EXPECT_EQ(locations({"--install", one},
                        {{"REFDOC_INSTALL", ""}, {"REFDOC_ROOT", ""}, {"REFDOC_LANG", ""}}),
              lines(one, "option --install", oneHelp, "option --install"));
    EXPECT_EQ(locations({}, {{"REFDOC_INSTALL", ""}}, "one"),
              lines(one, "current folder", oneHelp, "current folder"));
}

TEST_F(LocationTest, RelativeFoldersAreRelativeToTheCurrentFolder) {
    const Outcome outcome =
        runProgram({"show", "P"}, {.variables = {{"REFDOC_ROOT", "bare"}}, .folder = path()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("a.html"));
}

TEST_F(LocationTest, CurrentFolderIsReadIfItContainsDocumentation) {
    EXPECT_EQ(locations({}, {}, "one"), lines(one, "current folder", oneHelp, "current folder"));
    EXPECT_THAT(locations({}, {}, "bare"),
                HasSubstr("\n" + bare + ": current folder\nen: default"));
    add("bare/installation.json", R"({"docLanguage": "ja"})");
    EXPECT_EQ(locations({}, {}, "bare"),
              lines(bare, "current folder", bare, "current folder", "ja: default"));
}

TEST_F(LocationTest, OptionsAndVariablesWinOverTheCurrentFolder) {
    EXPECT_EQ(locations({"--install", two}, {}, "one"),
              lines(two, "option --install", twoHelp, "option --install"));
    EXPECT_EQ(locations({}, {{"REFDOC_INSTALL", two}}, "one"),
              lines(two, installVariable, twoHelp, installVariable));
    EXPECT_THAT(locations({}, {{"REFDOC_ROOT", bare}}, "one"),
                HasSubstr(": default\n" + bare + ": " + rootVariable));
}

TEST_F(LocationTest, TextNamesTheOriginsToo) {
    const std::string out =
        runProgram({"products"}, {.variables = {{"REFDOC_LANG", "ja"}}, .folder = one}).out;
    EXPECT_THAT(out, HasSubstr("Folders\n"
                               "-------\n"
                               "install folder       " +
                               one + "\nreference root       " + oneHelp + "\n"));
    EXPECT_THAT(out, HasSubstr("Origins\n"
                               "-------\n"
                               "install folder  current folder\n"
                               "reference root  current folder\n"
                               "language        environment variable REFDOC_LANG\n"));
}

TEST_F(LocationTest, CompletionLooksInTheSamePlaces) {
    EXPECT_EQ(runProgram({"complete", "show", ""}, {.folder = one}).out, "words\nP\n");
    EXPECT_EQ(runProgram({"complete", "show", ""}, {.variables = {{"REFDOC_ROOT", bare}}}).out,
              "words\nP\n");
}

TEST_F(LocationTest, FilesWithoutATerminalGetNoNoteOnTheCurrentFolder) {
    EXPECT_THAT(runProgram({"show", "P"}, {.folder = one}).err, IsEmpty());
}

// A command that reads nothing of the current folder does not fail because of it.
TEST_F(LocationTest, HelpAndCheckedPathsIgnoreTheCurrentFolder) {
    add("broken/installation.json", "{");
    EXPECT_EQ(runProgram({"help"}, {.folder = path("broken")}).status, 0);
    const Outcome outcome = runProgram({"check", bare}, {.folder = path("broken")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("1 file checked"));
}

TEST_F(LocationTest, CheckedPathsPreferTheirOwnManifestToTheEnvironment) {
    add("one/help/docCatalog/referenceapi/P_ja.json", kProduct);
    add("english/installation.json", "{}");
    const Variables english{{"REFDOC_INSTALL", path("english")}};
    const auto textOf = [&](const Arguments& arguments) {
        return runProgram(arguments, {.variables = english}).out;
    };
    const Outcome withManifest = runProgram({"check", oneHelp});
    EXPECT_EQ(textOf({"check", oneHelp}), withManifest.out);
    EXPECT_EQ(textOf({"check", one}), withManifest.out);
    EXPECT_NE(textOf({"--install", path("english"), "check", oneHelp}), withManifest.out);
}

class NoRootTest : public RefdocTest {
protected:
    static constexpr const char* kRemedy = "; --install or --root names another folder\n";
};

TEST_F(NoRootTest, EachComplaintNamesTheOptions) {
    const std::string root = path("none");
    for (const Arguments& command : {Arguments{"show", "P"},
                                     {"lookup"},
                                     {"search", "a"},
                                     {"products"},
                                     {"explain", "P"},
                                     {"check"}}) {
        Arguments arguments{"--install", root};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const Outcome outcome = runProgram(arguments);
        EXPECT_THAT(outcome.err, testing::StartsWith("refdoc: ")) << command.front();
        EXPECT_THAT(outcome.err, testing::EndsWith(kRemedy)) << command.front();
    }
}

TEST_F(NoRootTest, EmptyFolderIsWrongUsage) {
    for (const std::string option : {"--install", "--root", "--support-folder"}) {
        const Outcome expected{2, "",
                               "refdoc: " + option +
                                   " is empty; for the current folder, write \".\"; see refdoc "
                                   "--help\n"};
        EXPECT_EQ(runProgram({option, "", "lookup"}), expected);
        EXPECT_EQ(runProgram({option + "=", "lookup"}), expected);
    }
}

TEST_F(NoRootTest, WithoutSupportPackageRootNoOtherFolderIsTried) {
    addResource("Q", section("q", ""));
    EXPECT_EQ(document(run({"products", "--json"}).out).at("roots").at("supportPackageFolder"), "");
    EXPECT_THAT(run({"products"}).out, HasSubstr("support packages     none\n"));
    const boost::json::value explained = document(run({"explain", "P", "--json"}).out);
    EXPECT_EQ(explained.at("files").as_array().size(), 1U) << boost::json::serialize(explained);
    EXPECT_THAT(run({"--verbose", "show", "P"}).err,
                HasSubstr("[16] Reading file: (no support packages)␀"));
}

} // namespace
} // namespace refdoc_tests
