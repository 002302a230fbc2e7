#include "tests/system/refdoc/RefdocTest.hpp"

#include <algorithm>

namespace refdoc_tests {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using Arguments = std::vector<std::string>;

TEST(CommandLineTest, HelpIsAlsoACommand) {
    EXPECT_EQ(runProgram({"help"}), runProgram({"--help"}));
    for (const char* command : {"show", "lookup", "products", "explain", "check", "search", "site",
                                "serve", "diff", "git-diff", "help"})
        EXPECT_EQ(runProgram({"help", command}), runProgram({command, "--help"})) << command;
    EXPECT_EQ(runProgram({"help", "shwo"}),
              (Outcome{2, "",
                       "refdoc: unknown command \"shwo\"; did you mean \"show\"?; see refdoc "
                       "--help\n"}));
}

TEST(CommandLineTest, VersionGoesToStdout) {
    EXPECT_EQ(runProgram({"-V"}), runProgram({"--version"}));
    EXPECT_EQ(runProgram({"--version"}), (Outcome{0, "refdoc " REFDOC_VERSION "\n", ""}));
}

TEST(CommandLineTest, HelpNamesEachCommandAndOption) {
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
                             "--lang-strict",
                             "$REFDOC_INSTALL",
                             "$REFDOC_ROOT",
                             "$REFDOC_LANG",
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

TEST(CommandLineTest, CommandIsRequired) {
    EXPECT_EQ(runProgram({}), (Outcome{2, "",
                                       "refdoc: a command is needed: show, lookup, products, "
                                       "explain, check, search, site, serve, translations, diff, "
                                       "git-diff or help; see refdoc --help\n"}));
}

class CommandLineOrderTest : public RefdocTest {};

TEST_F(CommandLineOrderTest, GlobalOptionsPrecedeOrFollowTheCommandAndItsArguments) {
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

TEST_F(CommandLineOrderTest, LastOfRepeatedOptionsWins) {
    EXPECT_THAT(run({"--lang", "de", "--lang", "ja", "--json", "products"}).out,
                HasSubstr("\"language\": \"ja\""));
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
