#include "tools/refdoc/cli/ManPage.hpp"

#include "tests/unit/tools/refdoc/cli/Gardener.hpp"
#include "tools/refdoc/Commands.hpp"
#include "tools/refdoc/cli/CommandLine.hpp"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <boost/algorithm/string/split.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using testing::HasSubstr;

// As the page spells it.
std::string escaped(std::string_view text) {
    return boost::algorithm::replace_all_copy(std::string(text), "-", "\\-");
}

TEST(ManPageTest, HasEveryCommandOptionAndStatusOfTheTable) {
    const CommandTable& table = commandTable();
    const std::string page = manPage(table, "1.2.3", "2026-03-01");
    EXPECT_THAT(page, HasSubstr(".TH REFDOC 1 \"2026-03-01\" \"refdoc 1.2.3\""));
    for (const CommandEntry& command : table.commands) {
        EXPECT_THAT(page, HasSubstr("\\fB" + escaped(synopsisOf(command)) + "\\fR\n"));
        for (const OptionEntry* option : optionsFor(table, &command))
            EXPECT_THAT(page, HasSubstr("\\fB" + escaped(option->name) + "\\fR"));
        for (const Remark& example : command.examples)
            EXPECT_THAT(page, HasSubstr("\n" + escaped(example.subject) + "\n"));
    }
    for (const std::vector<Remark>* remarks : {&table.exitStatuses, &table.environment})
        for (const Remark& remark : *remarks)
            EXPECT_THAT(page, HasSubstr("\n\\fB" + escaped(remark.subject) + "\\fR\n"));
}

TEST(ManPageTest, ExamplesOfACommandCallIt) {
    for (const CommandEntry& command : commandTable().commands) {
        for (const Remark& example : command.examples) {
            std::vector<std::string> words;
            boost::algorithm::split(words, example.subject, boost::algorithm::is_space());
            if (words.front() == "git") // configures git to call refdoc
                continue;
            EXPECT_EQ(words.front(), "refdoc");
            words.erase(words.begin());
            const CommandLine line = sortWords(commandTable(), words);
            ASSERT_NE(line.command, nullptr) << example.subject;
            EXPECT_EQ(line.command->name, command.name) << example.subject;
            EXPECT_EQ(line.valueFault, "") << example.subject;
        }
    }
}

TEST(ManPageTest, PutsTheArgumentsAndOptionsOfACommandBelowIt) {
    const std::string page = manPage(kGardener, "1", "2026-03-01");
    EXPECT_THAT(page, HasSubstr("[\\fIOPTIONS\\fR] \\fBwater\\fR \\fIBED\\fR\n"));
    EXPECT_THAT(page, HasSubstr("\\fBwater BED\\fR\nWater the beds. In the evening.\n.RS\n"
                                ".TP\n\\fIBED\\fR\nThe bed.\n"
                                ".TP\n\\fB\\-\\-can\\fR \\fIFILE\\fR\nThe can.\n"
                                ".TP\n\\fB\\-\\-gently\\fR\nDo it slowly.\n"
                                ".TP\n\\fB\\-\\-mix\\fR[=\\fIWHAT\\fR]\n"
                                "Add something to the water.\n.RE\n"));
}

TEST(ManPageTest, NoTextIsReadAsMarkup) {
    EXPECT_THAT(manPage(kGardener, "1", "2026-03-01"),
                HasSubstr("\n\\&.starts like a macro and says \\en\n"));
}

} // namespace
} // namespace refdoc_tests
