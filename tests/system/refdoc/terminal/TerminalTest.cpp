#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::Not;

class TerminalTest : public RefdocTest {
protected:
    TerminalTest() {
        const std::string purpose = "Join the scion to the rootstock and wait until it grows";
        addResource("P", section("p", R"({"href": "a.html", "refpurpose": ")" + purpose + "\"}"));
        addLookup("P", section("p", R"({"name": "graft", "href": "a.html", "refpurpose": ")" +
                                        purpose + "\"}"));
    }

    static constexpr const char* kWholeLine =
        "  graft  function  Join the scion to the rootstock and wait until it grows  P  "
        "not installed\n";
};

TEST_F(TerminalTest, WrapsTextToTheWidth) {
    const std::string out = runAtTerminal(50, {"--color", "never", "show", "P"}).out;
    EXPECT_THAT(out, HasSubstr("  Join the scion to the rootstock and wait until\n  it grows\n"));
}

TEST_F(TerminalTest, CutsIndexLinesToTheWidth) {
    EXPECT_THAT(runAtTerminal(60, {"--color", "never", "lookup"}).out,
                HasSubstr("\n  graft  function  Join the scion to the…   P  not installed\n"));
    EXPECT_THAT(runAtTerminal(120, {"--color", "never", "lookup"}).out, HasSubstr(kWholeLine));
}

TEST_F(TerminalTest, ColumnsOverridesTheWidth) {
    EXPECT_THAT(
        runAtTerminal(60, {"--color", "never", "lookup"}, {.variables = {{"COLUMNS", "120"}}}).out,
        HasSubstr(kWholeLine));
}

TEST_F(TerminalTest, UnknownWidthIs80) {
    EXPECT_THAT(runAtTerminal(0, {"--color", "never", "lookup"}).out,
                HasSubstr("\n  graft  function  Join the scion to the rootstock and wait u…"));
}

TEST_F(TerminalTest, FilesGetCompleteIndexLines) {
    EXPECT_THAT(run({"lookup"}, {.variables = {{"COLUMNS", "40"}}}).out, HasSubstr(kWholeLine));
}

TEST_F(TerminalTest, TerminalGetsColorUnlessTheEnvironmentDisablesIt) {
    EXPECT_THAT(runAtTerminal(80, {"show", "P"}).out, HasSubstr("\x1b[1m"));
    EXPECT_THAT(runAtTerminal(80, {"show", "P"}, {.variables = {{"NO_COLOR", ""}}}).out,
                HasSubstr("\x1b[1m"));
    EXPECT_THAT(runAtTerminal(80, {"show", "P"}, {.variables = {{"NO_COLOR", "1"}}}).out,
                Not(HasSubstr("\x1b")));
    EXPECT_THAT(runAtTerminal(80, {"show", "P"}, {.variables = {{"TERM", "dumb"}}}).out,
                Not(HasSubstr("\x1b")));
    EXPECT_THAT(runAtTerminal(80, {"show", "P", "--color", "never"}).out, Not(HasSubstr("\x1b")));
}

TEST_F(TerminalTest, SearchHighlightsTheMatchesThatAreVisible) {
    const std::string scion = "\x1b[1m\x1b[4mscion\x1b[0m";
    EXPECT_THAT(runAtTerminal(120, {"search", "SCION"}).out,
                HasSubstr("Join the " + scion + " to the rootstock"));
    EXPECT_THAT(runAtTerminal(60, {"search", "SCION"}).out, HasSubstr("Join the " + scion + " t…"));
    EXPECT_THAT(runAtTerminal(40, {"search", "grows"}).out, Not(HasSubstr("\x1b[4m")));
    EXPECT_THAT(runAtTerminal(80, {"search", "SCION", "--color", "never"}).out,
                Not(HasSubstr("\x1b")));
}

TEST_F(TerminalTest, JsonHasNoColorOnATerminal) {
    EXPECT_EQ(runAtTerminal(80, {"show", "P", "--json"}), run({"show", "P", "--json"}));
}

class CurrentFolderNoteTest : public RefdocTest {
protected:
    // What a terminal shows of both streams, in a folder with these files.
    std::string shown(const std::vector<std::string>& files) const {
        for (const std::string& file : files)
            add("here/" + file, "{}");
        return runOnTerminal(80, {"--no-pager", "lookup"},
                             {.folder = path("here"), .isErrorOnTerminal = true})
            .out;
    }

    static std::string note(const std::string& content) {
        return "refdoc: note: reading the current folder, because it contains " + content +
               "; --install or --root names another folder\n";
    }
};

TEST_F(CurrentFolderNoteTest, TerminalShowsWhyTheCurrentFolderIsRead) {
    EXPECT_THAT(shown({"docCatalog/x"}), testing::StartsWith(note("\"docCatalog\"")));
    EXPECT_THAT(shown({"installation.json"}),
                testing::StartsWith(note("\"docCatalog\" and \"installation.json\"")));
    std::filesystem::remove_all(path("here/docCatalog"));
    EXPECT_THAT(shown({}), testing::StartsWith(note("\"installation.json\"")));
}

TEST_F(CurrentFolderNoteTest, OtherFoldersNeedNoNote) {
    EXPECT_THAT(runOnTerminal(80, {"--no-pager", "lookup"}, {.isErrorOnTerminal = true}).out,
                testing::StartsWith("refdoc: the lookup index is empty: "));
}

} // namespace
} // namespace refdoc_tests
