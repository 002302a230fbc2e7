#include "tests/support/NativeText.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/system/refdoc/ToolProcess.hpp"
#include "tools/refdoc/Commands.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc_tests {
namespace {

using docparser_tests::portable;
using docparser_tests::TemporaryFolder;

constexpr std::string_view kPrompt = "$ refdoc ";
constexpr std::string_view kOmission = "[...]\n";

const std::filesystem::path kProject = std::filesystem::path(SAMPLES_FOLDER).parent_path();

// A command with its output, as shown on a page.
struct Example {
    std::string command;
    std::string output;
};

std::vector<std::filesystem::path> pages() {
    std::vector<std::filesystem::path> found = {kProject / "README.md",
                                                kProject / "samples/README.md",
                                                kProject / "tools/refdoc/README.md"};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kProject / "docs")) {
        if (entry.path().extension() == ".md")
            found.push_back(entry.path());
    }
    return found;
}

std::vector<Example> examplesOf(const std::filesystem::path& page) {
    std::ifstream stream(page);
    std::vector<Example> found;
    bool isInside = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(kPrompt)) {
            found.push_back({line.substr(kPrompt.size()), {}});
            isInside = true;
        } else if (line.starts_with("```")) {
            isInside = false;
        } else if (isInside && !(line.empty() && found.back().output.empty())) {
            found.back().output += line + '\n';
        }
    }
    return found;
}

std::vector<std::string> argumentsOf(const std::string& command) {
    std::istringstream stream(command);
    return {std::istream_iterator<std::string>(stream), {}};
}

// Returns true if the output is as shown on a page, where an omission stands for any lines.
bool matches(std::string_view output, std::string_view shown) {
    const std::size_t omission = shown.find(kOmission);
    if (omission == shown.npos)
        return output == shown;
    if (!output.starts_with(shown.substr(0, omission)))
        return false;
    output.remove_prefix(omission);
    shown.remove_prefix(omission + kOmission.size());
    while (!matches(output, shown)) {
        const std::size_t lineEnd = output.find('\n');
        if (lineEnd == output.npos)
            return false;
        output.remove_prefix(lineEnd + 1);
    }
    return true;
}

// Writes the folder "help" that the pages check.
void writeDamagedTree(const TemporaryFolder& folder) {
    const std::string header = R"({"productName": "O", "baseCode": "OR", "helpFolder": "orchard",)"
                               R"( "helpLocation": "help/orchard", "refItems": [)";
    folder.write("help/docCatalog/referenceapi/Cellar.JSON", header + "]}");
    folder.write("help/docCatalog/referenceapi/NoKey.json",
                 header + "\n{\"href\": \"press.html\"}]}");
    folder.write("help/docCatalog/referenceapi/Orchard.json", header + R"(
{"href": "graft.html", "refpurpose": "Join"},
{"href": "water.html", "refpurpose": "Pour"},
{"href": "prune.html", "refpurpose": "Cut", "refentity": [{"name": "prune"}], "introducd": "1"}]}
)");
    folder.write("help/docCatalog/referenceapi_lookup/Orchard.json",
                 header + R"({"name": "prune", "href": "prune.html", "refpurpose": "Cut"}]})");
}

TEST(DocumentationTest, CommandsPrintWhatThePagesShow) {
    const TemporaryFolder damaged;
    writeDamagedTree(damaged);
    std::set<std::filesystem::path> pagesWithExamples;
    for (const std::filesystem::path& page : pages()) {
        for (const Example& example : examplesOf(page)) {
            SCOPED_TRACE(page.string() + ": refdoc " + example.command);
            const bool isCheck = example.command.starts_with("check ");
            const Outcome outcome = runProgram(
                argumentsOf(example.command),
                {.folder = docparser_tests::textOf(isCheck ? damaged.path() : kProject)});
            const std::string output = portable(outcome.out) + outcome.err;
            EXPECT_TRUE(matches(output, example.output)) << output;
            EXPECT_EQ(outcome.status, isCheck ? 1 : 0);
            pagesWithExamples.insert(page);
        }
    }
    EXPECT_THAT(pagesWithExamples,
                testing::IsSupersetOf({kProject / "README.md", kProject / "docs/check.md"}));
}

TEST(DocumentationTest, CommandsPageShowsTheHelpOfEachCommand) {
    std::vector<std::string> expected{"help"};
    for (const refdoc::CommandEntry& command : refdoc::commandTable().commands)
        expected.push_back("help " + std::string(command.name));
    std::vector<std::string> shown;
    for (const Example& example : examplesOf(kProject / "docs/commands.md"))
        shown.push_back(example.command);
    EXPECT_EQ(shown, expected);
}

} // namespace
} // namespace refdoc_tests
