#include "tools/refdoc/cli/CommandLine.hpp"
#include "tools/refdoc/cli/CompletionScripts.hpp"
#include "tools/refdoc/cli/ManPage.hpp"
#include "tools/refdoc/cli/TypedWords.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <variant>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// Another program than refdoc: with an option that one command alone has.
const CommandTable kGardener{
    .program = "gardener",
    .summary = "look after a garden",
    .description = {"One paragraph.", ".starts like a macro and says \\n"},
    .options = {{"--plot", "DIR", ValueKind::Folder, "Where [it's] done: here"},
                {.name = "--help",
                 .placeholder = "",
                 .kind = ValueKind::None,
                 .help = "Help",
                 .shortName = "-h"}},
    .commands = {{"water",
                  "Water the beds",
                  "In the evening.",
                  {{"BED", ValueKind::Product, true, false, "Which bed"}},
                  {{"--can", "FILE", ValueKind::Folder, "Which can"},
                   {"--gently", "", ValueKind::None, "Slowly"}}},
                 {"rest", "Do nothing", "At noon."}},
    .exitStatuses = {{"0", "Done."}},
    .environment = {},
    .files = {},
    .examples = {{"gardener water roses", "Roses."}},
    .seeAlso = {"less(1)"}};

std::string words(std::string_view text) {
    std::string result;
    for (const char letter : text)
        result += letter == '-' ? "\\-" : std::string(1, letter);
    return result;
}

TEST(ShellFilesTest, TheManualPageHasEveryCommandOptionAndStatusOfTheTable) {
    const CommandTable& table = commandTable();
    const std::string page = manPage(table, "1.2.3", "2026-03-01");
    EXPECT_THAT(page, HasSubstr(".TH REFDOC 1 \"2026-03-01\" \"refdoc 1.2.3\""));
    for (const CommandEntry& command : table.commands)
        EXPECT_THAT(page, HasSubstr("\\fB" + words(synopsisOf(command)) + "\\fR\n"));
    for (const OptionEntry& option : table.options)
        EXPECT_THAT(page, HasSubstr("\\fB" + words(option.name) + "\\fR"));
    for (const std::vector<Remark>* remarks : {&table.exitStatuses, &table.environment})
        for (const Remark& remark : *remarks)
            EXPECT_THAT(page, HasSubstr("\n\\fB" + words(remark.subject) + "\\fR\n"));
    for (const Remark& example : table.examples)
        EXPECT_THAT(page, HasSubstr("\n" + words(example.subject) + "\n"));
}

TEST(ShellFilesTest, TheManualPagePutsTheOptionsOfACommandBelowIt) {
    const std::string page = manPage(kGardener, "1", "2026-03-01");
    EXPECT_THAT(page, HasSubstr("\\fBwater BED\\fR\nWater the beds. In the evening.\n.RS\n"
                                ".TP\n\\fIBED\\fR\nWhich bed.\n"
                                ".TP\n\\fB\\-\\-can\\fR \\fIFILE\\fR\nWhich can.\n"
                                ".TP\n\\fB\\-\\-gently\\fR\nSlowly.\n.RE\n"));
}

TEST(ShellFilesTest, NoTextOfTheManualPageIsTakenForMarkup) {
    EXPECT_THAT(manPage(kGardener, "1", "2026-03-01"),
                HasSubstr("\n\\&.starts like a macro and says \\en\n"));
}

TEST(ShellFilesTest, BashKnowsWhichOptionsTakeFolders) {
    EXPECT_THAT(bashCompletion(commandTable()),
                HasSubstr("    --install | --root | --support-folder)\n"));
    EXPECT_THAT(bashCompletion(kGardener),
                AllOf(HasSubstr("    --plot | --can)\n"),
                      HasSubstr("complete -F _gardener gardener\n"), Not(HasSubstr("refdoc"))));
}

TEST(ShellFilesTest, ZshKnowsTheOptionsAndWhichCommandTheyBelongTo) {
    const std::string script = zshCompletion(kGardener);
    EXPECT_THAT(script, HasSubstr("'--plot=[Where \\[it'\\''s\\] done\\: here]:DIR:_files -/'\n"));
    EXPECT_THAT(script, HasSubstr("'(-h --help)'{-h,--help}'[Help]'\n"));
    EXPECT_THAT(script, HasSubstr("(( ${typed[(I)water]} )) && rules+=(\n"
                                  "        '--can=[Which can]:FILE:_files -/'\n"
                                  "        '--gently[Slowly]'\n    )\n"));
}

TEST(ShellFilesTest, FishKnowsTheOptionsAndWhichCommandTheyBelongTo) {
    const std::string script = fishCompletion(kGardener);
    EXPECT_THAT(script, HasSubstr("complete -c gardener -l plot -d 'Where [it\\'s] done: here' -x "
                                  "-a '(__fish_complete_directories)'\n"));
    EXPECT_THAT(script, HasSubstr("complete -c gardener -s h -l help -d 'Help'\n"));
    EXPECT_THAT(script, HasSubstr("complete -c gardener -n '__fish_seen_subcommand_from water' "
                                  "-l gently -d 'Slowly'\n"));
}

TEST(ShellFilesTest, TheParserTakesTheOptionsOfACommandFromTheTable) {
    const auto parsed =
        parseCommandLine(kGardener, {"water", "--can", "green", "roses", "--plot", "here"});
    const ParsedWords& found = std::get<ParsedWords>(parsed);
    EXPECT_EQ(found.command, "water");
    EXPECT_THAT(found.arguments, ElementsAre("roses"));
    EXPECT_EQ(found.value("--can"), "green");
    EXPECT_EQ(found.value("--plot"), "here");
    EXPECT_FALSE(found.has("--gently"));

    const auto refused = parseCommandLine(kGardener, {"rest", "--gently"});
    EXPECT_THAT(std::get<Answer>(refused).complaints,
                ElementsAre("the following argument was not expected: --gently; "
                            "see gardener --help"));
}

TEST(ShellFilesTest, TheWordsBeingTypedAreSortedByTheTable) {
    const TypedWords typed =
        sortWords(kGardener, {"--what", "--plot=x", "water", "--can", "green", "roses", "--can"});
    EXPECT_THAT(typed.options, ElementsAre("--plot=x", "--can", "green"));
    EXPECT_EQ(typed.command, &kGardener.commands[0]);
    EXPECT_THAT(typed.arguments, ElementsAre("roses"));
    EXPECT_EQ(typed.option, nullptr);
    EXPECT_EQ(typed.word, "--can");
    EXPECT_EQ(sortWords(kGardener, {"water", "--can", "g"}).option,
              &kGardener.commands[0].options[0]);
    EXPECT_EQ(sortWords(kGardener, {"rest", "--can", "g"}).option, nullptr);
}

} // namespace
} // namespace refdoc_tests
