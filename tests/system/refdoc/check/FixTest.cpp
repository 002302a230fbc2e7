#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"

#include <fmt/format.h>

#include <filesystem>
#include <set>

namespace refdoc_tests {
namespace {

namespace fs = std::filesystem;
namespace json = boost::json;

using docparser_tests::pathOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kMark = "\xEF\xBB\xBF";
const std::string kResources = "help/docCatalog/referenceapi/";
const std::string kLookups = "help/docCatalog/referenceapi_lookup/";

// A full resource file whose only item has these members besides the required ones.
std::string orchardWith(const std::string& members) {
    return section("orchard",
                   "\n{\"href\": \"a.html\", \"refpurpose\": \"Join\", " + members + "}\n");
}

class FixTest : public CheckTest {
protected:
    FixTest() { addManifest(R"({"supportedDocLanguages": ["en", "de", "zh_CN"]})"); }

    Outcome show() const { return check({".", "--fix"}); }
    Outcome write() const { return check({".", "--fix", "--write"}); }

    // The names of the files in a folder.
    std::set<std::string> namesIn(const std::string& folder) const {
        std::set<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(pathOf(path(folder))))
            names.insert(entry.path().filename().string());
        return names;
    }

    // Fixes a resource file and expects another content, after which there is nothing to fix.
    void expectFixed(const std::string& before, const std::string& after) const {
        addResource("Orchard", before);
        EXPECT_THAT(write().err, StartsWith("refdoc: fixed ")) << before;
        EXPECT_EQ(read(kResources + "Orchard.json"), after);
        const Outcome again = write();
        EXPECT_EQ(again.out, "") << before;
        EXPECT_THAT(again.err, StartsWith("refdoc: nothing to fix\n")) << before;
    }
};

TEST_F(FixTest, ShowsDiffAndChangesNothing) {
    const std::string text = orchardWith(R"("introducd": "1")");
    addResource("Orchard", text);
    EXPECT_EQ(show(), (Outcome{0,
                               "diff --git a/help/docCatalog/referenceapi/Orchard.json "
                               "b/help/docCatalog/referenceapi/Orchard.json\n"
                               "--- a/help/docCatalog/referenceapi/Orchard.json\n"
                               "+++ b/help/docCatalog/referenceapi/Orchard.json\n"
                               "@@ -1,3 +1,3 @@\n " +
                                   linesOf(text)[0] +
                                   "\n"
                                   "-{\"href\": \"a.html\", \"refpurpose\": \"Join\", "
                                   "\"introducd\": \"1\"}\n"
                                   "+{\"href\": \"a.html\", \"refpurpose\": \"Join\", "
                                   "\"introduced\": \"1\"}\n ]}\n\\ No newline at end of file\n",
                               "refdoc: 1 finding in 1 file can be fixed; --write changes the "
                               "files\n"}));
    EXPECT_EQ(read(kResources + "Orchard.json"), text);
}

TEST_F(FixTest, WritesWhatItShows) {
    addResource("Orchard", orchardWith(R"("introducd": "1", "depricationstatus": "Removed")"));
    const Outcome shown = show();
    const Outcome written = write();
    EXPECT_EQ(written, (Outcome{0, shown.out, "refdoc: fixed 2 findings in 1 file\n"}));
    EXPECT_EQ(read(kResources + "Orchard.json"),
              orchardWith(R"("introduced": "1", "deprecationstatus": "removed")"));
    EXPECT_EQ(write(), (Outcome{0, "", "refdoc: nothing to fix\n"}));
}

TEST_F(FixTest, KeepsEveryOtherByte) {
    const std::string space = " \t\r\n\n  ";
    for (const auto& [before, after] : {
             std::pair(R"("introducd":"1")", R"("introduced":"1")"),
             std::pair(R"("in\u0074roducd":"\u0031")", R"("introduced":"\u0031")"),
             std::pair("\"introducd\"\t :\r\n\"1\" ", "\"introduced\"\t :\r\n\"1\" "),
             std::pair("\"introduced\":\"木\",\"x木\":1,\"Description\":\"\"",
                       "\"introduced\":\"木\",\"x木\":1,\"description\":\"\""),
         })
        expectFixed(space + orchardWith(before) + space, space + orchardWith(after) + space);
    expectFixed(orchardWith(R"("introducd": "1")") + '\n',
                orchardWith(R"("introduced": "1")") + '\n');
}

TEST_F(FixTest, FixesOneLongLine) {
    const auto itemsOfType = [](std::string_view type) {
        std::string items;
        for (int number = 0; number < 1100; ++number)
            items += fmt::format(R"({}{{"href": "a{}.html", "refpurpose": "Join", )"
                                 R"("refentity": [{{"name": "a", "type": "{}"}}]}})",
                                 number == 0 ? "" : ",", number, type);
        return items;
    };
    const std::string before = section("orchard", itemsOfType("Function"));
    ASSERT_GT(before.size(), 100'000U);
    expectFixed(before, section("orchard", itemsOfType("function")));
}

TEST_F(FixTest, FixesWhatAnotherFixUncovers) {
    expectFixed(kMark + orchardWith(R"("refentiy": [{"nam": "a", "type": "functon"}])"),
                orchardWith(R"("refentity": [{"name": "a", "type": "function"}])"));
    expectFixed(std::string(kMark) + kMark + orchardWith(R"("x": 1)"), orchardWith(R"("x": 1)"));
}

TEST_F(FixTest, LeavesWhatCanMeanSeveralThings) {
    for (const char* members : {
             R"("zebra": "1")",                        // no key is near
             R"("introduced": "1", "introducd": "2")", // the item has the key
             R"("introducd": "1", "intoduced": "2")",  // either can be meant
             R"("introducd": 1)",                      // the file would be dropped
             R"("refentity": [{"name": "a", "type": "zebra"}])",
         }) {
        addResource("Orchard", orchardWith(members));
        EXPECT_EQ(write(), (Outcome{0, "", "refdoc: nothing to fix\n"})) << members;
        EXPECT_EQ(read(kResources + "Orchard.json"), orchardWith(members));
    }
}

TEST_F(FixTest, RenamesFiles) {
    addResource("Orchard", orchardWith(R"("x": 1)"));
    addResource("Orchard_DE", orchardWith(R"("x": 1)"));
    add(kResources + "Orchard_zh-cn.JSON", orchardWith(R"("introducd": "1")"));
    EXPECT_EQ(write(),
              (Outcome{0,
                       "diff --git a/help/docCatalog/referenceapi/Orchard_DE.json "
                       "b/help/docCatalog/referenceapi/Orchard_de.json\n"
                       "rename from help/docCatalog/referenceapi/Orchard_DE.json\n"
                       "rename to help/docCatalog/referenceapi/Orchard_de.json\n"
                       "diff --git a/help/docCatalog/referenceapi/Orchard_zh-cn.JSON "
                       "b/help/docCatalog/referenceapi/Orchard_zh_CN.json\n"
                       "rename from help/docCatalog/referenceapi/Orchard_zh-cn.JSON\n"
                       "rename to help/docCatalog/referenceapi/Orchard_zh_CN.json\n"
                       "--- a/help/docCatalog/referenceapi/Orchard_zh-cn.JSON\n"
                       "+++ b/help/docCatalog/referenceapi/Orchard_zh_CN.json\n"
                       "@@ -1,3 +1,3 @@\n " +
                           linesOf(orchardWith(""))[0] +
                           "\n"
                           "-{\"href\": \"a.html\", \"refpurpose\": \"Join\", \"introducd\": "
                           "\"1\"}\n"
                           "+{\"href\": \"a.html\", \"refpurpose\": \"Join\", \"introduced\": "
                           "\"1\"}\n"
                           " ]}\n\\ No newline at end of file\n",
                       "refdoc: fixed 3 findings in 2 files\n"}));
    EXPECT_THAT(namesIn(kResources),
                ElementsAre("Orchard.json", "Orchard_de.json", "Orchard_zh_CN.json"));
    EXPECT_EQ(write(), (Outcome{0, "", "refdoc: nothing to fix\n"}));
}

TEST_F(FixTest, FoldersAreNotRenamed) {
    addResource("Cellar", orchardWith(R"("x": 1)"));
    fs::create_directories(pathOf(path(kResources + "Orchard.JSON")));
    EXPECT_EQ(write().err, "refdoc: can't change \"help/docCatalog/referenceapi/Orchard.JSON\": "
                           "it is not a regular file\n"
                           "refdoc: nothing to fix\n"
                           "refdoc: 1 error left; see refdoc check\n");
}

TEST_F(FixTest, CorrectedManifestUncoversLanguages) {
    addManifest(R"({"suportedDocLanguages": ["en", "de"]})");
    addResource("Orchard", orchardWith(R"("x": 1)"));
    addResource("Orchard_DE", orchardWith(R"("x": 1)"));
    EXPECT_THAT(write().err, StartsWith("refdoc: fixed 2 findings in 2 files\n"));
    EXPECT_EQ(read("installation.json"), R"({"supportedDocLanguages": ["en", "de"]})");
    EXPECT_THAT(namesIn(kResources), ElementsAre("Orchard.json", "Orchard_de.json"));
    EXPECT_EQ(write(), (Outcome{0, "", "refdoc: nothing to fix\n"}));
}

TEST_F(FixTest, SingleFileIsCheckedAgainUnderItsNewName) {
    add("drafts/Orchard.JSON", orchardWith(R"("introducd": "1")"));
    const Outcome outcome = check({"drafts/Orchard.JSON", "--fix", "--write"});
    EXPECT_EQ(outcome.err, "refdoc: fixed 2 findings in 1 file\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(namesIn("drafts"), ElementsAre("Orchard.json"));
    EXPECT_EQ(read("drafts/Orchard.json"), orchardWith(R"("introduced": "1")"));
}

TEST_F(FixTest, FileThatIsGivenTwiceIsFixedOnce) {
    add("drafts/Orchard.json", orchardWith(R"("introducd": "1")"));
    check({"drafts/Orchard.json", "drafts/../drafts/Orchard.json", "--fix", "--write"});
    EXPECT_EQ(read("drafts/Orchard.json"), orchardWith(R"("introduced": "1")"));
}

TEST_F(FixTest, PackagesAreNotRewritten) {
    docparser_tests::ZipBytes package;
    package.entries = {
        {.name = "in/Orchard.json",
         .content =
             section("orchard", R"({"name": "a", "href": "a", "refpurpose": "", "typ": "class"},
                                          {"name": "b", "href": "b", "refpurpose": "", "type": "Class"})")}};
    add(kLookups + "Orchard.zip", package.build());
    const std::string bytes = read(kLookups + "Orchard.zip");
    EXPECT_EQ(check({kLookups + "Orchard.zip", "--fix", "--write"}),
              (Outcome{0, "",
                       "refdoc: 2 findings in packages must be fixed by hand: packages are not "
                       "rewritten\nrefdoc: nothing to fix\n"}));
    EXPECT_EQ(read(kLookups + "Orchard.zip"), bytes);
}

TEST_F(FixTest, ErrorsThatRemainAreStatusOne) {
    addResource("Orchard", orchardWith(R"("introducd": "1")"));
    addResource("Cellar", "{");
    EXPECT_EQ(show().status, 1);
    const Outcome outcome = write();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "refdoc: fixed 1 finding in 1 file\n"
                           "refdoc: 1 error left; see refdoc check\n");
}

TEST_F(FixTest, FixedErrorsAreStatusZero) {
    addResource("Orchard", kMark + orchardWith(R"("x": 1)"));
    EXPECT_EQ(show().status, 1);
    EXPECT_EQ(write().status, 0);
}

TEST_F(FixTest, FixesOnlyWhatIsReported) {
    addResource("Orchard", orchardWith(R"("introducd": "1")"));
    EXPECT_EQ(check({".", "--fix", "--ignore", "unknown-key"}),
              (Outcome{0, "", "refdoc: nothing to fix\n"}));
    add("known.json", check({".", "--json"}).out);
    EXPECT_EQ(check({".", "--fix", "--baseline", "known.json"}),
              (Outcome{0, "", "refdoc: nothing to fix\n"}));
}

TEST_F(FixTest, RootWithoutFilesIsFailure) {
    fs::create_directories(pathOf(path("empty/docCatalog")));
    const Outcome outcome = check({"empty", "--fix"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.err, HasSubstr("nothing to check"));
}

TEST_F(FixTest, OptionsThatExcludeEachOther) {
    EXPECT_EQ(check({".", "--write"}),
              (Outcome{2, "", "refdoc: --write needs --fix; see refdoc check --help\n"}));
    EXPECT_EQ(
        check({".", "--fix", "--sarif"}),
        (Outcome{2, "", "refdoc: --sarif and --fix cannot be combined; see refdoc --help\n"}));
}

TEST_F(FixTest, ReportsHaveTheFixes) {
    addResource("Orchard", "{\n" + orchardWith(R"("introducd": "1")").substr(1));
    add(kResources + "Cellar.JSON", "{}");
    const json::value findings = document(check({".", "--json"}).out).at("findings");
    EXPECT_EQ(findings.at(0).at("fix"), document(R"({"newName": "Cellar.json", "edits": []})"));
    EXPECT_EQ(findings.at(1).at("fix"), document(R"({"newName": null, "edits": [
        {"line": 3, "column": 42, "offset": 173,
         "original": "\"introducd\"", "replacement": "\"introduced\""}]})"));
    const json::value results = document(check({".", "--sarif"}).out).at_pointer("/runs/0/results");
    EXPECT_FALSE(results.at(0).as_object().contains("fixes"));
    EXPECT_EQ(results.at(1).at_pointer("/fixes/0/artifactChanges/0/replacements/0"),
              document(R"({"deletedRegion": {"startLine": 3, "startColumn": 42, "endColumn": 53},
                           "insertedContent": {"text": "\"introduced\""}})"));
}

// Windows has no file names that differ only in case, and links need a privilege there.
#ifndef _WIN32
TEST_F(FixTest, NameThatIsTakenIsLeft) {
    addResource("Orchard", orchardWith(R"("x": 1)"));
    add(kResources + "Orchard.JSON", "{}");
    add(kResources + "Cellar.JSON", "{}");
    add(kResources + "Cellar.Json", "{}");
    const auto names = namesIn(kResources);
    EXPECT_EQ(write().err, "refdoc: can't rename \"help/docCatalog/referenceapi/Cellar.JSON\": "
                           "another file has or would get the name \"Cellar.json\"\n"
                           "refdoc: can't rename \"help/docCatalog/referenceapi/Cellar.Json\": "
                           "another file has or would get the name \"Cellar.json\"\n"
                           "refdoc: can't rename \"help/docCatalog/referenceapi/Orchard.JSON\": "
                           "another file has or would get the name \"Orchard.json\"\n"
                           "refdoc: nothing to fix\n"
                           "refdoc: 3 errors left; see refdoc check\n");
    EXPECT_EQ(namesIn(kResources), names);
}

TEST_F(FixTest, FileWhoseNewNameIsTakenIsFixedUnderItsOldName) {
    addResource("Orchard", orchardWith(R"("x": 1)"));
    addResource("Orchard_de", orchardWith(R"("x": 1)"));
    addResource("Orchard_DE", orchardWith(R"("introducd": "1")"));
    EXPECT_EQ(write().err, "refdoc: can't rename \"help/docCatalog/referenceapi/Orchard_DE.json\": "
                           "another file has or would get the name \"Orchard_de.json\"\n"
                           "refdoc: fixed 1 finding in 1 file\n");
    EXPECT_EQ(read(kResources + "Orchard_DE.json"), orchardWith(R"("introduced": "1")"));
}

TEST_F(FixTest, LinksAreNotFollowed) {
    const std::string text = orchardWith(R"("introducd": "1")");
    add("elsewhere/Orchard.json", text);
    fs::create_directories(pathOf(path(kResources)));
    fs::create_symlink(path("elsewhere/Orchard.json"), path(kResources + "Orchard.json"));
    EXPECT_EQ(write(),
              (Outcome{0, "",
                       "refdoc: can't change \"help/docCatalog/referenceapi/Orchard.json\": "
                       "\"help/docCatalog/referenceapi/Orchard.json\" is a symbolic link\n"
                       "refdoc: nothing to fix\n"}));
    EXPECT_TRUE(fs::is_symlink(path(kResources + "Orchard.json")));
    EXPECT_EQ(read("elsewhere/Orchard.json"), text);
}

TEST_F(FixTest, LinkedFoldersOfTheRootAreNotFollowed) {
    const std::string text = orchardWith(R"("introducd": "1")");
    add("elsewhere/referenceapi/Orchard.json", text);
    fs::create_directory(path("help"));
    fs::create_directory_symlink(path("elsewhere"), path("help/docCatalog"));
    EXPECT_THAT(write().err, StartsWith("refdoc: can't change "
                                        "\"help/docCatalog/referenceapi/Orchard.json\": "
                                        "\"help/docCatalog\" is a symbolic link\n"));
    EXPECT_EQ(read("elsewhere/referenceapi/Orchard.json"), text);
}
#endif

#ifdef PATCH_PROGRAM
// Applies what `refdoc check --fix` prints.
class PatchTest : public FixTest {
protected:
    int applyDiff() const {
        add("fixes.diff", show().out);
        const std::string command = "cd '" + path() +
                                    "' && '" PATCH_PROGRAM
                                    "' --quiet --forward -p1 < fixes.diff > patch.log 2>&1";
        return std::system(command.c_str());
    }
};

TEST_F(PatchTest, DiffCanBeApplied) {
    const std::string text = orchardWith("\r\n\"Description\":\t\"木\"");
    addResource("Orchard", kMark + text + "\r\n");
    addResource("Two words", text);
    add(kResources + "Cellar.JSON", orchardWith(R"("x": 1)"));
    addResource("Cellar_DE", text);
    ASSERT_EQ(applyDiff(), 0) << read("patch.log");

    const std::string fixed = orchardWith("\r\n\"description\":\t\"木\"");
    EXPECT_THAT(namesIn(kResources),
                ElementsAre("Cellar.json", "Cellar_de.json", "Orchard.json", "Two words.json"));
    EXPECT_EQ(read(kResources + "Orchard.json"), fixed + "\r\n");
    EXPECT_EQ(read(kResources + "Two words.json"), fixed);
    EXPECT_EQ(read(kResources + "Cellar_de.json"), fixed);
    EXPECT_EQ(show(), (Outcome{0, "", "refdoc: nothing to fix\n"}));
}
#endif

} // namespace
} // namespace refdoc_tests
