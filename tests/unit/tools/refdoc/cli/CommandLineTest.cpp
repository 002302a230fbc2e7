#include "tools/refdoc/cli/CommandLine.hpp"

#include "tests/unit/tools/refdoc/cli/Gardener.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <variant>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using Words = std::vector<std::string>;

// The only complaint about the words; empty if they are accepted.
std::string complaintAbout(const Words& words) {
    const auto parsed = parseCommandLine(kGardener, words);
    const Answer* answer = std::get_if<Answer>(&parsed);
    if (!answer)
        return {};
    EXPECT_EQ(answer->status, ExitStatus::WrongUsage);
    EXPECT_EQ(answer->complaints.size(), 1U);
    return answer->complaints.front();
}

TEST(CommandLineTest, SortsWordsIntoCommandArgumentsAndOptions) {
    const auto parsed = parseCommandLine(
        kGardener, {"--plot=here", "water", "--can", "green", "roses", "--plot", "there", "--mix"});
    const CommandLine& line = std::get<CommandLine>(parsed);
    EXPECT_EQ(line.command, &kGardener.commands[0]);
    EXPECT_THAT(line.arguments, ElementsAre("roses"));
    EXPECT_EQ(line.options.value("--can"), "green");
    EXPECT_EQ(line.options.value("--plot"), "there");
    EXPECT_THAT(line.options.values("--plot"), ElementsAre("here", "there"));
    EXPECT_EQ(line.options.value("--mix"), "");
    EXPECT_FALSE(line.options.has("--gently"));
    EXPECT_EQ(line.options.value("--gently"), std::nullopt);
    EXPECT_THAT(line.options.values("--gently"), ElementsAre());
}

TEST(CommandLineTest, ComplaintsNameTheFaultAndTheHelp) {
    EXPECT_EQ(complaintAbout({"rest", "--gently"}),
              "--gently must follow the command water; see gardener --help");
    EXPECT_EQ(complaintAbout({"move"}), "move needs an OLD; see gardener --help");
    EXPECT_EQ(complaintAbout({"move", "a"}), "move needs a NEW; see gardener --help");
    EXPECT_EQ(complaintAbout({"move", "a", "b", "c"}),
              "unexpected argument \"c\"; see gardener --help");
    EXPECT_EQ(complaintAbout({"water", "roses", "--can"}),
              "--can needs a value; see gardener --help");
    EXPECT_EQ(complaintAbout({"watre"}),
              "unknown command \"watre\"; did you mean \"water\"?; see gardener --help");
    EXPECT_EQ(complaintAbout({"water", "roses", "--gentyl"}),
              "unknown option --gentyl; did you mean --gently?; see gardener --help");
    EXPECT_EQ(complaintAbout({}), "a command is needed: water, rest or move; see gardener --help");
}

TEST(CommandLineTest, OptionsOfOneGroupExcludeEachOtherInAnyOrder) {
    const std::string complaint = "--quick and --gently cannot be combined; see gardener --help";
    EXPECT_EQ(complaintAbout({"--quick", "water", "--gently", "roses"}), complaint);
    EXPECT_EQ(complaintAbout({"water", "roses", "--gently", "--quick"}), complaint);
    EXPECT_EQ(complaintAbout({"water", "roses", "--gently", "--gently"}), "");
}

TEST(CommandLineTest, HelpIsThatOfTheCommandWhateverElseIsWrong) {
    const auto helpFor = [](const Words& words) {
        return std::get<Answer>(parseCommandLine(kGardener, words)).output;
    };
    EXPECT_THAT(helpFor({"--bad", "-h"}), StartsWith("Look after a garden.\n"));
    EXPECT_THAT(helpFor({"--help", "water"}), StartsWith("Water the beds.\n"));
    EXPECT_THAT(helpFor({"water", "a", "b", "-hx"}), StartsWith("Water the beds.\n"));
}

TEST(CommandLineTest, HelpOfACommandHasItsDescriptionStatusesAndExamples) {
    const auto helpFor = [](const char* command) {
        return std::get<Answer>(parseCommandLine(kGardener, {command, "--help"})).output;
    };
    EXPECT_THAT(helpFor("water"), HasSubstr("[OPTIONS]\n\nIn the evening.\n\nArguments:\n"));
    EXPECT_THAT(helpFor("move"), HasSubstr("[OPTIONS]\n\nArguments:\n"));
    EXPECT_THAT(helpFor("water"), EndsWith("\nExit status:\n"
                                           "  0  Done.\n"
                                           "  1  The bed is flooded.\n"
                                           "\nExamples:\n"
                                           "  gardener water roses\n"
                                           "\n\"gardener --help\" lists the options of all "
                                           "commands.\n"));
    EXPECT_THAT(helpFor("rest"), EndsWith("\nExit status:\n"
                                          "  0  Done.\n"
                                          "\n\"gardener --help\" lists the options of all "
                                          "commands.\n"));
}

TEST(CommandLineTest, UnfinishedWordsAreSortedToo) {
    const CommandLine line =
        sortWords(kGardener, {"--what", "--plot=x", "water", "--can", "green", "roses", "--can"});
    EXPECT_EQ(line.options.value("--plot"), "x");
    EXPECT_EQ(line.options.value("--can"), "green");
    EXPECT_EQ(line.command, &kGardener.commands[0]);
    EXPECT_THAT(line.arguments, ElementsAre("roses"));
    EXPECT_EQ(line.openOption, &kGardener.commands[0].options[0]);
    EXPECT_FALSE(line.onlyArguments);
    EXPECT_EQ(sortWords(kGardener, {"rest", "--can"}).openOption, nullptr);
    EXPECT_TRUE(sortWords(kGardener, {"water", "--"}).onlyArguments);
}

} // namespace
} // namespace refdoc_tests
