#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using Arguments = std::vector<std::string>;

class FailureTest : public RefdocTest {};

TEST_F(FailureTest, MalformedManifestIsReportedWithFileAndPosition) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"{\n  \"docLanguage\": }", "line 2, column 18: syntax error"},
        {R"({"docLanguage": 1})", "/docLanguage: a string was expected"},
        {R"([])", "the top level: an object was expected"},
        {R"({"topLevelProducts": [{}]})", "/topLevelProducts/0: the key \"shortName\" is missing"},
        {R"({"hardwareSupportPackages": ["a", null]})",
         "/hardwareSupportPackages/1: a string was expected"},
    };
    for (const auto& [manifest, error] : cases) {
        addManifest(manifest);
        EXPECT_EQ(run({"products"}),
                  (Outcome{3, "", "refdoc: " + path("installation.json") + ": " + error + "\n"}));
    }
}

TEST_F(FailureTest, MalformedManifestFailsEveryCommandEvenIfOptionsOverrideIt) {
    addManifest("{");
    for (const Arguments& arguments :
         {Arguments{"show", "P"}, Arguments{"lookup"}, Arguments{"products"},
          Arguments{"--lang", "de", "--langs", "de", "--installed", "a", "lookup", "--json"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 3);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, testing::StartsWith("refdoc: " + path("installation.json")));
    }
}

TEST_F(FailureTest, FolderWithTheNameOfTheManifestIsFailure) {
    add("installation.json/file", "");
    const Outcome outcome = run({"products"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.err, testing::StartsWith("refdoc: " + path("installation.json") + ": "));
}

TEST_F(FailureTest, MissingInstallFolderIsEmptyInstallation) {
    EXPECT_EQ(runProgram({"--install", path("nowhere"), "lookup"}),
              (Outcome{0, "",
                       "refdoc: the lookup index is empty: " + path("nowhere/help") +
                           " does not exist; --install or --root names another folder\n"}));
}

} // namespace
} // namespace refdoc_tests
