#include "tests/support/NativeText.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/system/refdoc/ToolProcess.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc_tests {
namespace {

using docparser_tests::portable;
using docparser_tests::TemporaryFolder;

constexpr std::string_view kPrompt = "$ refdoc ";
constexpr std::string_view kLeftOut = "[...]\n";

// A command that README.md shows, and what it shows of its output.
struct Quotation {
    std::vector<std::string> arguments;
    std::string output;
};

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

std::vector<Quotation> quotations() {
    std::ifstream readme(SAMPLES_FOLDER "/../README.md");
    std::vector<Quotation> found;
    bool isInside = false;
    for (std::string line; std::getline(readme, line);) {
        if (line.starts_with(kPrompt)) {
            found.push_back({wordsOf(line.substr(kPrompt.size())), {}});
            isInside = true;
        } else if (line.starts_with("```")) {
            isInside = false;
        } else if (isInside && !(line.empty() && found.back().output.empty())) {
            found.back().output += line + '\n';
        }
    }
    return found;
}

// Whether the text is what is quoted, which may leave parts out.
testing::AssertionResult isQuoted(const std::string& text, std::string_view quoted) {
    std::size_t at = 0;
    bool mayBegin = true; // only here may the next part stand
    while (!quoted.empty()) {
        const std::size_t end = quoted.find(kLeftOut);
        const std::string_view part = quoted.substr(0, end);
        const std::size_t place = text.find(part, at);
        if (place == text.npos || (mayBegin && place != at))
            return testing::AssertionFailure() << "not printed:\n" << part << "but:\n" << text;
        at = place + part.size();
        mayBegin = false;
        if (end == quoted.npos)
            return at == text.size() ? testing::AssertionSuccess()
                                     : testing::AssertionFailure() << "more is printed:\n"
                                                                   << text.substr(at);
        quoted.remove_prefix(end + kLeftOut.size());
    }
    return testing::AssertionSuccess();
}

// The tree that the example of `check` is about.
void writeDamagedTree(const TemporaryFolder& folder) {
    const std::string header = R"({"productName": "O", "baseCode": "OR", "helpFolder": "orchard",)"
                               R"( "helpLocation": "o", "refItems": [)";
    folder.write("help/docCatalog/referenceapi/Cellar.JSON", header + "]}");
    folder.write("help/docCatalog/referenceapi/NoKey.json",
                 header + "\n{\"href\": \"press.html\"}]}");
    folder.write("help/docCatalog/referenceapi/Orchard.json", header + R"(
{"href": "graft.html", "refpurpose": "Join"},
{"href": "water.html", "refpurpose": "Pour"},
{"href": "prune.html", "refpurpose": "Cut", "refentity": [{"name": "prune"}], "introducd": "1"}]})");
    folder.write("help/docCatalog/referenceapi_lookup/Orchard.json",
                 header + R"({"name": "prune", "href": "prune.html", "refpurpose": "Cut"}]})");
}

TEST(ReadmeTest, ShowsWhatTheProgramPrints) {
    const TemporaryFolder damaged;
    writeDamagedTree(damaged);
    const std::vector<Quotation> shown = quotations();
    EXPECT_GE(shown.size(), 3U);
    for (const Quotation& quotation : shown) {
        const bool isCheck = quotation.arguments.front() == "check";
        const Outcome outcome = runProgram(
            quotation.arguments, {.folder = isCheck ? docparser_tests::textOf(damaged.path())
                                                    : std::string(SAMPLES_FOLDER "/..")});
        EXPECT_TRUE(isQuoted(portable(outcome.out), quotation.output))
            << "refdoc " << testing::PrintToString(quotation.arguments);
        EXPECT_EQ(outcome.status, isCheck ? 1 : 0);
        EXPECT_EQ(outcome.err, "");
    }
}

} // namespace
} // namespace refdoc_tests
