#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace refdoc_tests {
namespace {

using testing::HasSubstr;

const std::string kNoPurpose = section("a", R"({"href": "a.html"})");
const std::string kLookupWithoutPurpose = section("a", R"({"href": "a.html", "name": "a"})");

class CheckPathTest : public CheckTest {};

TEST_F(CheckPathTest, ResourceFileMayBeInAnyFolder) {
    add("drafts/Orchard.json", kNoPurpose);
    EXPECT_EQ(
        check({"drafts/Orchard.json"}),
        (Outcome{
            1,
            "drafts/Orchard.json:1:107: error: the required key \"refpurpose\" is missing; the "
            "whole file is dropped (a.html) [missing-key]\n1 error in 1 file; 1 file checked\n",
            ""}));
}

TEST_F(CheckPathTest, RelatedPositionsOfASingleFileAreInThatFile) {
    add("drafts/Orchard.json", section("a", "", ",\n\"refItems\": []"));
    EXPECT_EQ(linesOf(check({"drafts/Orchard.json"}).out),
              (std::vector<std::string>{
                  "drafts/Orchard.json:2:1: error: the object already has this key; the earlier "
                  "value is ignored (refItems) [repeated-key]",
                  "    drafts/Orchard.json:1:94: the value that is ignored",
                  "1 error in 1 file; 1 file checked"}));
}

TEST_F(CheckPathTest, CheckOfASingleFileLeavesNoTemporaryFiles) {
    add("A.json", kNoPurpose);
    add("temporary/used.txt", "");
    const std::string temporary = path("temporary");
    const std::map<std::string, std::string> variables = {
        {"TMPDIR", temporary}, {"TMP", temporary}, {"TEMP", temporary}};
    EXPECT_EQ(runProgram({"check", "A.json"}, {.variables = variables, .folder = path()}).status,
              1);
    const std::filesystem::directory_iterator left(temporary);
    EXPECT_EQ(std::distance(begin(left), end(left)), 1);
}

TEST_F(CheckPathTest, PathTakesPrecedenceOverRootOption) {
    add("other/docCatalog/referenceapi/B.json", "{");
    addResource("A", kNoPurpose);
    addLookupFolder();
    for (const char* where : {"help", ".", "help/docCatalog/referenceapi/A.json"})
        EXPECT_THAT(linesOf(check({where, "--root", "other"}).out),
                    testing::ElementsAre(HasSubstr("A.json:1:107: error"),
                                         "1 error in 1 file; 1 file checked"))
            << where;
}

TEST_F(CheckPathTest, ManifestIsFoundUpToSixLevelsAboveTheFile) {
    addManifest(R"({"supportedDocLanguages": ["en", "fr"]})");
    add("1/2/3/4/5/6/A_FR.json", section("a", ""));
    add("1/2/3/4/5/6/7/A_FR.json", section("a", ""));
    EXPECT_THAT(check({"1/2/3/4/5/6/A_FR.json"}).out,
                HasSubstr("\"_FR\" differs from the supported language \"fr\""));
    EXPECT_EQ(check({"1/2/3/4/5/6/7/A_FR.json"}).out, "1 file checked, no problems found\n");
}

TEST_F(CheckPathTest, SupportFolderIsNotCheckedWithASingleFile) {
    addManifest(R"({"supportPackageRoot": "packages"})");
    add("packages/help/docCatalog/referenceapi/Kit.JSON", section("kit", ""));
    add("A.json", section("a", ""));
    EXPECT_EQ(check({"A.json"}).out, "1 file checked, no problems found\n");
    EXPECT_THAT(check({"."}).out, HasSubstr("[extension-case]"));
}

TEST_F(CheckPathTest, CurrentLanguageIsKnownEvenIfItIsNotSupported) {
    addManifest(R"({"docLanguage": "fr", "supportedDocLanguages": ["en", "de"]})");
    addResource("A", section("a", ""));
    addResource("A_fr", section("a", ""));
    addLookupFolder();
    EXPECT_EQ(check({"help"}).out, "3 files checked, no problems found\n");
}

TEST_F(CheckPathTest, ContentDecidesWhetherItIsLookupFile) {
    add("drafts/Lookup.json",
        section("a", R"({"name": "a", "href": "a.html", "refpurpose": "", "deprecated": false})"));
    EXPECT_THAT(check({"drafts/Lookup.json"}).out, HasSubstr("[deprecated-false]"));
}

TEST_F(CheckPathTest, FolderTakesPrecedenceOverContent) {
    add("referenceapi_lookup/A.json", kNoPurpose);
    EXPECT_THAT(check({"referenceapi_lookup/A.json"}).out,
                HasSubstr("the required key \"name\" is missing"));
    add("referenceapi/A.json", kLookupWithoutPurpose);
    EXPECT_THAT(check({"referenceapi/A.json"}).out, HasSubstr("[wrong-folder]"));
}

TEST_F(CheckPathTest, PackageIsCheckedByItself) {
    docparser_tests::ZipBytes package;
    package.entries = {{.name = "in/A.json", .content = kLookupWithoutPurpose}};
    add("A.zip", package.build());
    EXPECT_EQ(
        check({"A.zip"}),
        (Outcome{
            1,
            "A.zip!in/A.json:1:107: error: the required key \"refpurpose\" is missing; the whole "
            "file is dropped (a) [missing-key]\n1 error in 1 file; 1 file checked\n",
            ""}));
}

TEST_F(CheckPathTest, PackageDirectoryOverLimitIsReported) {
    // The start of a record, a hole, and an end record that claims all of it as the directory.
    constexpr std::uint64_t kLength = (64 << 20) + 1;
    add("A.zip", "PK\1\2");
    std::filesystem::resize_file(path("A.zip"), kLength);
    std::ofstream(path("A.zip"), std::ios::app | std::ios::binary)
        << docparser_tests::endRecord(1, kLength, 0);
    EXPECT_EQ(check({"A.zip"}),
              (Outcome{1,
                       "A.zip: error: the file is not read: its directory is larger than the limit "
                       "of 67108864 bytes [over-limit]\n1 error in 1 file; 1 file checked\n",
                       ""}));
}

TEST_F(CheckPathTest, ManifestIsCheckedAgainstItsSchema) {
    addManifest("{\"docLanguag\": \"de\",\n \"topLevelProducts\": [{}]}");
    EXPECT_EQ(
        linesOf(check({"installation.json"}).out),
        (std::vector<std::string>{
            "installation.json:1:2: warning: unknown key \"docLanguag\", ignored; did you mean "
            "\"docLanguage\"? [unknown-key]",
            "installation.json:2:23: error: the required key \"shortName\" is missing; the whole "
            "file is dropped (topLevelProducts[0]) [missing-key]",
            "1 error, 1 warning in 1 file; 1 file checked"}));
}

TEST_F(CheckPathTest, SeveralPathsGiveOneReport) {
    add("A.json", kNoPurpose);
    add("B.json", kNoPurpose);
    const Outcome outcome = check({"B.json", "A.json"});
    EXPECT_THAT(linesOf(outcome.out),
                testing::ElementsAre(HasSubstr("A.json:"), HasSubstr("B.json:"),
                                     "2 errors in 2 files; 2 files checked"));
}

TEST_F(CheckPathTest, ReferenceRootUsesManifestOfItsInstallFolder) {
    addResource("A", section("a", ""));
    addResource("A_fr", section("a", ""));
    addLookupFolder();
    EXPECT_THAT(check({"help"}).out, HasSubstr("[unsupported-language]"));
    addManifest(R"({"supportedDocLanguages": ["en", "fr"]})");
    EXPECT_EQ(check({"help"}), (Outcome{0, "3 files checked, no problems found\n", ""}));
}

TEST_F(CheckPathTest, WithoutPathCurrentRootsAreChecked) {
    addResource("A", kNoPurpose);
    addLookupFolder();
    const std::string file = docparser_tests::portable(path("help/docCatalog/referenceapi/A.json"));
    EXPECT_EQ(
        run({"check"}),
        (Outcome{1,
                 file +
                     ":1:107: error: the required key \"refpurpose\" is missing; the whole "
                     "file is dropped (a.html) [missing-key]\n1 error in 1 file; 1 file checked\n",
                 ""}));
}

TEST_F(CheckPathTest, FindingsOfSeveralLanguagesAreReportedOnce) {
    addResource("A", kNoPurpose);
    add("help/docCatalog/referenceapi_lookup/A.zip", "not a package");
    EXPECT_THAT(check({"help", "--langs", "en,de,ja"}).out,
                HasSubstr("2 errors in 2 files; 2 files checked\n"));
}

TEST_F(CheckPathTest, FolderWithoutDocumentationIsAnError) {
    add("empty/x", "");
    const Outcome outcome = check({"empty"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "no files checked\n");
    EXPECT_THAT(outcome.err, HasSubstr("is neither a reference root nor an install folder"));
}

TEST_F(CheckPathTest, MissingFileIsAnError) {
    EXPECT_EQ(check({"gone.json"}),
              (Outcome{3, "no files checked\n",
                       "refdoc: file or folder \"gone.json\" does not exist\n"}));
}

TEST_F(CheckPathTest, OtherFilesAreCheckedWhenOneIsMissing) {
    add("A.json", kNoPurpose);
    const Outcome outcome = check({"gone.json", "A.json"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(linesOf(outcome.out), testing::ElementsAre(HasSubstr("[missing-key]"),
                                                           "1 error in 1 file; 1 file checked"));
    EXPECT_EQ(outcome.err, "refdoc: file or folder \"gone.json\" does not exist\n");
}

TEST_F(CheckPathTest, MalformedManifestIsAFindingAndNothingElseIsChecked) {
    addManifest("{");
    addResource("A", kNoPurpose);
    const Outcome expected{
        1,
        "installation.json:1:2: error: invalid JSON, so the whole file is dropped: cut off: "
        "the object that begins at 1:1 has no end [malformed-json]\n"
        "1 error in 1 file; 1 file checked\n",
        "refdoc: only installation.json was checked, because it determines the languages and the "
        "installed products\n"};
    EXPECT_EQ(check({"."}), expected);
    EXPECT_EQ(check({"--install", "."}), expected);
    EXPECT_EQ(check({"--install", ".", "--lang", "de"}), expected);
    for (const char* where : {".", "--install=."})
        EXPECT_THAT(check({where, "--sarif"}).out, HasSubstr("\"ruleId\":\"malformed-json\""));
}

TEST_F(CheckPathTest, ManifestOfTheWrongFormatIsAFinding) {
    addManifest("{\"topLevelProducts\": [{}]}");
    const Outcome outcome = check({"--install", "."});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out,
              "installation.json:1:23: error: the required key \"shortName\" is "
              "missing; the whole file is dropped (topLevelProducts[0]) [missing-key]\n"
              "1 error in 1 file; 1 file checked\n");
}

TEST_F(CheckPathTest, FileInTheWrongFolderIsOneFinding) {
    const std::string items = R"({"href": "a.html", "refpurpose": ""},)"
                              R"({"href": "b.html", "refpurpose": ""})";
    add("referenceapi_lookup/Plain.json", section("a", items));
    add("referenceapi_lookup/Package.json",
        section("a", "", ", \"supportPackages\": [" + section("kit", items) + "]"));
    for (const char* file : {"Plain", "Package"})
        EXPECT_THAT(
            linesOf(check({std::string("referenceapi_lookup/") + file + ".json"}).out),
            testing::ElementsAre(HasSubstr("[wrong-folder]"), "1 error in 1 file; 1 file checked"));
}

TEST_F(CheckPathTest, EmptyPathIsAnError) {
    EXPECT_EQ(check({""}),
              (Outcome{3, "no files checked\n",
                       "refdoc: the PATH is empty; for the current folder, write \".\"\n"}));
}

TEST_F(CheckPathTest, RootWithoutResourceFilesIsAnError) {
    add("help/docCatalog/x", "");
    const Outcome outcome = check({"help"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "no files checked\n");
    EXPECT_THAT(outcome.err, HasSubstr("nothing to check: there is no resource file in \""));
}

TEST_F(CheckPathTest, RootThatDoesNotExistIsAnError) {
    EXPECT_EQ(check({"--root", "/nowhere/help"}),
              (Outcome{3, "no files checked\n",
                       "refdoc: nothing to check: the reference root \"/nowhere/help\" does not "
                       "exist; --install or --root names another folder\n"}));
}

TEST_F(CheckPathTest, FileThatIsNoResourceFileIsAnError) {
    add("readme.txt", "Read me");
    const Outcome outcome = check({"readme.txt"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.err, HasSubstr("readme.txt\" is neither a resource file nor a package"));
}

TEST_F(CheckPathTest, WithoutInstalledProductsEachLookupNeedsFullResources) {
    addLookup("A", section("a", R"({"name": "a", "href": "a.html", "refpurpose": ""})"));
    EXPECT_THAT(check({"help"}).out, HasSubstr("[lookup-without-resources]"));
    addManifest(R"({"hardwareSupportPackages": ["kit"]})");
    EXPECT_THAT(check({"help"}).out, testing::Not(HasSubstr("[lookup-without-resources]")));
}

TEST_F(CheckPathTest, EqualRecordsAreNotLost) {
    const std::string record = R"({"name": "a", "href": "a.html", "refpurpose": ""})";
    addResource("A", section("a", R"({"href": "a.html", "refpurpose": ""})"));
    addLookup("A", section("a", record));
    addLookup("B", section("a", record));
    addResource("B", section("a", R"({"href": "a.html", "refpurpose": ""})"));
    EXPECT_EQ(check({"help"}).out, "4 files checked, no problems found\n");
}

} // namespace
} // namespace refdoc_tests
