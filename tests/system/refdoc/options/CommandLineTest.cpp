#include "tests/system/refdoc/RefdocTest.hpp"

#include <algorithm>
#include <utility>

namespace refdoc_tests {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using Arguments = std::vector<std::string>;

TEST(CommandLineTest, VersionGoesToStandardOutput) {
    EXPECT_EQ(runProgram({"--version"}), (Outcome{0, "refdoc " REFDOC_VERSION "\n", ""}));
}

TEST(CommandLineTest, HelpGoesToStandardOutputAndNamesEachCommandAndOption) {
    const Outcome outcome = runProgram({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* word : {"show",
                             "lookup",
                             "products",
                             "explain",
                             "--install DIR",
                             "--root DIR",
                             "--support-folder DIR",
                             "--lang L",
                             "--langs L,L,...",
                             "--installed N,N,...",
                             "--support-packages N,N,...",
                             "--json",
                             "--jsonl",
                             "--no-pager",
                             "--color",
                             "auto",
                             "always",
                             "never",
                             "--verbose",
                             "--version",
                             "--help"})
        EXPECT_THAT(outcome.out, HasSubstr(word));
}

TEST(CommandLineTest, EachCommandHasHelp) {
    for (const auto& [command, usage] : {std::pair{"show", "PRODUCT [HREF...]"},
                                         {"lookup", "[NAME...]"},
                                         {"products", ""},
                                         {"explain", "[PRODUCT] [HREF]"}}) {
        const Outcome outcome = runProgram({command, "--help"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, HasSubstr(std::string("Usage: refdoc ") + command));
        EXPECT_THAT(outcome.out, HasSubstr(usage));
    }
}

TEST(CommandLineTest, WrongUsageIsOneLineOnStandardErrorAndStatus2) {
    const std::vector<std::pair<Arguments, std::string>> cases{
        {{}, "a command is needed: show, lookup, products, explain or check"},
        {{"--json"}, "a command is needed: show, lookup, products, explain or check"},
        {{"list"}, "there is no command or option list"},
        {{"--bad"}, "there is no command or option --bad"},
        {{"show"}, "show needs a PRODUCT"},
        {{"--json", "show"}, "show needs a PRODUCT"},
        {{"explain"}, "explain needs either a PRODUCT or --name"},
        {{"explain", "Orchard", "--name", "graft"}, "explain needs either a PRODUCT or --name"},
        {{"explain", "a", "b", "c"}, "the following argument was not expected: c"},
        {{"products", "Orchard"}, "the following argument was not expected: Orchard"},
        {{"products", "--", "--json"}, "the following argument was not expected: --json"},
        {{"lookup", "--what"}, "the following argument was not expected: --what"},
        {{"--color", "pink", "lookup"}, "--color: pink not in {auto,always,never}"},
        {{"lookup", "--install"}, "--install: 1 required DIR missing"},
    };
    for (const auto& [arguments, complaint] : cases)
        EXPECT_EQ(runProgram(arguments),
                  (Outcome{2, "", "refdoc: " + complaint + "; see refdoc --help\n"}));
}

class CommandLineOrderTest : public RefdocTest {
protected:
    // The line about a name while the index is empty.
    static std::string noEntry(const std::string& name) {
        return "refdoc: no entry \"" + name +
               "\" in the lookup index; --install or --root names another folder\n";
    }
};

TEST_F(CommandLineOrderTest, GlobalOptionsStandBeforeOrAfterTheCommandAndItsNames) {
    addResource("Orchard", section("orchard", R"({"href": "a.html", "refpurpose": "English"})"));
    addResource("Orchard_de", section("orchard", R"({"href": "a.html", "refpurpose": "Deutsch"})"));
    const Outcome expected = run({"--lang", "de", "--json", "show", "Orchard", "a.html"});
    ASSERT_THAT(expected.out, HasSubstr("\"Deutsch\""));
    for (const Arguments& arguments :
         {Arguments{"--json", "show", "--lang", "de", "Orchard", "a.html"},
          Arguments{"show", "Orchard", "--json", "a.html", "--lang", "de"},
          Arguments{"show", "Orchard", "a.html", "--lang=de", "--json"}})
        EXPECT_EQ(run(arguments), expected);
    EXPECT_EQ(
        runProgram({"show", "Orchard", "a.html", "--json", "--lang", "de", "--install", path()}),
        expected);
}

TEST_F(CommandLineOrderTest, TheLastOfTwoEqualOptionsWins) {
    EXPECT_THAT(run({"--lang", "de", "--lang", "ja", "--json", "products"}).out,
                HasSubstr("\"language\": \"ja\""));
}

TEST_F(CommandLineOrderTest, NamesMayLookLikeCommandsOrLists) {
    const Arguments names{"show", "[a,b]", "[]", "{}", "%%", "++", "-", "", "\x1f"};
    std::string lines;
    for (const std::string& name : names)
        lines += noEntry(name == "\x1f" ? "␟" : name);
    Arguments arguments{"lookup"};
    arguments.insert(arguments.end(), names.begin(), names.end());
    EXPECT_EQ(run(arguments), (Outcome{1, "", lines}));
}

TEST_F(CommandLineOrderTest, AfterTwoDashesEveryWordIsAName) {
    EXPECT_EQ(run({"lookup", "--", "--json", "--", "-x"}),
              (Outcome{1, "", noEntry("--json") + noEntry("--") + noEntry("-x")}));
    EXPECT_THAT(run({"show", "--", "--help"}).err,
                StartsWith("refdoc: no resources for \"--help\"; tried "));
}

TEST_F(CommandLineOrderTest, MessagesStartInLowerCaseAndEndWithoutAPeriod) {
    for (const Arguments& arguments : {Arguments{"show", "P"}, Arguments{"lookup", "x"},
                                       Arguments{"lookup"}, Arguments{"--bad"}}) {
        const std::string line = run(arguments).err;
        EXPECT_THAT(line, AllOf(StartsWith("refdoc: "), EndsWith("\n")));
        EXPECT_EQ(std::ranges::count(line, '\n'), 1) << line;
        EXPECT_TRUE(line[8] >= 'a' && line[8] <= 'z') << line;
        EXPECT_NE(line[line.size() - 2], '.') << line;
    }
}

} // namespace
} // namespace refdoc_tests
