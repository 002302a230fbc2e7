#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <fmt/format.h>

namespace refdoc_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class CheckAtTerminalTest : public CheckTest {
protected:
    std::vector<std::string> checkAt(std::size_t columns, std::vector<std::string> arguments,
                                     const std::string& color = "never") const {
        arguments.insert(arguments.begin(), {"check", "--no-pager", "--color", color});
        const Outcome outcome =
            runOnTerminal(columns, arguments, {.variables = {}, .folder = path(), .output = {}});
        return linesOf(outcome.out);
    }

    // A file of one line.
    const std::string text_ =
        R"({"productName":"","baseCode":"b","helpFolder":"a","helpLocation":"a","refItems":[)"
        R"({"href":"a.html","refpurpose":"Join the scion to the rootstock","introducd":"1.0"}]})";
};

TEST_F(CheckAtTerminalTest, ShowsTheLineAroundThePosition) {
    addResource("A", text_);
    const struct {
        std::size_t columns;
        const char* line;
        std::size_t markerColumn;
    } rows[] = {
        {40, R"(    ...the rootstock","introducd":"1....)", 22},
        {60, R"(    ...Join the scion to the rootstock","introducd":"1.0"}]})", 40},
        {80, R"(    ...html","refpurpose":"Join the scion to the rootstock","introducd":"1.0"}]})",
         60},
        {120,
         R"(    ...elpLocation":"a","refItems":[{"href":"a.html","refpurpose":"Join the scion to the rootstock","introducd":"1.0"}]})",
         100},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(checkAt(row.columns, {"help"}),
                    ElementsAre(HasSubstr("(a.html) [unknown-key]"), row.line,
                                std::string(row.markerColumn, ' ') + "^~~~~~~~~~~",
                                "1 warning in 1 file; 1 file checked"))
            << row.columns;
    }
}

TEST_F(CheckAtTerminalTest, MarkerHasTheColourOfTheSeverity) {
    addResource("A", text_);
    EXPECT_THAT(checkAt(80, {"help"}, "auto")[2], StartsWith("    \x1b[33m "));
}

TEST_F(CheckAtTerminalTest, FilesAndPipesGetNoExcerpt) {
    addResource("A", text_);
    EXPECT_THAT(check({"help", "--color", "always"}).out, Not(HasSubstr("^")));
}

TEST_F(CheckAtTerminalTest, ShowsEntriesOfPackages) {
    docparser_tests::ZipBytes package;
    package.entries = {{.name = "in/A.json", .content = text_}};
    add("A.zip", package.build());
    EXPECT_THAT(checkAt(120, {"A.zip"})[1], HasSubstr("\"refItems\":[{\"href\""));
}

TEST_F(CheckAtTerminalTest, ControlCharactersOfFilesAndItemsAreMadeVisible) {
    addResource("A\x1b[2J",
                section("a", R"({"href": "\u001b]0;x\u0007", "refpurpose": "", "k": 1})"));
    const std::vector<std::string> lines = checkAt(200, {"help"});
    EXPECT_THAT(lines.at(0), HasSubstr("A␛[2J.json:1:154: warning: unknown key \"k\", ignored "
                                       "(␛]0;x␇) [unknown-key]"));
    for (const std::string& line : lines)
        EXPECT_THAT(line, Not(HasSubstr("\x1b")));
}

TEST_F(CheckAtTerminalTest, ShowsTheEndOfATruncatedFile) {
    addResource("A", R"({"productName": ")");
    EXPECT_THAT(checkAt(80, {"help"}),
                ElementsAre(HasSubstr("[malformed-json]"), R"(    {"productName": ")",
                            "                     ^", "1 error in 1 file; 1 file checked"));
}

TEST_F(CheckAtTerminalTest, ShowsNothingOfAnEmptyFile) {
    addResource("A", "");
    EXPECT_THAT(checkAt(80, {"help"}),
                ElementsAre(HasSubstr("[malformed-json]"), "1 error in 1 file; 1 file checked"));
}

TEST_F(CheckAtTerminalTest, StaysWithin200Lines) {
    std::string items;
    for (int item = 0; item < 300; ++item)
        items += fmt::format(R"({}{{"href": "a.html", "refpurpose": "", "k{}": 1}})",
                             item == 0 ? "" : ",", item);
    addResource("A", section("a", items));
    const std::vector<std::string> lines = checkAt(80, {"help"});
    EXPECT_LE(lines.size(), 200U);
    EXPECT_GT(lines.size(), 195U);
}

TEST_F(CheckAtTerminalTest, NoLineOfAnExcerptIsWiderThanTheTerminal) {
    addResource("A", text_);
    for (const std::size_t columns : {40U, 60U, 80U, 120U})
        EXPECT_LE(refdoc::displayWidth(checkAt(columns, {"help"})[1]), columns);
}

} // namespace
} // namespace refdoc_tests
