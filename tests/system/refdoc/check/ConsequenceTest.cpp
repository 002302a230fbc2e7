#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"

namespace refdoc_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string kItems =
    R"({"href": "a.html", "refpurpose": "", "seealso": [{"url": "../b/b.html", "name": ""}]})";
const std::string kRecords = R"({"name": "a", "href": "a.html", "refpurpose": ""})";

class ConsequenceTest : public CheckTest {};

TEST_F(ConsequenceTest, TruncatedFileIsOneFinding) {
    addResource("A", section("a", kItems));
    addLookup("A", section("a", kRecords));
    addResource("B", R"({"productName": "", "helpFolder": "b", "refItems": [)");
    addLookup("B", section("b", R"({"name": "b", "href": "c.html", "refpurpose": ""})"));
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("referenceapi/B.json:1:53: error: invalid JSON"),
                            "2 consequences of these findings not shown; see --show-consequences",
                            "1 error in 1 file; 4 files checked"));
    EXPECT_THAT(linesOf(check({"help", "--show-consequences"}).out),
                ElementsAre(HasSubstr("[broken-link]"), HasSubstr("[malformed-json]"),
                            HasSubstr("[lookup-without-resources]"),
                            "1 error, 2 warnings in 3 files; 4 files checked"));
}

TEST_F(ConsequenceTest, RepeatedListOfItemsIsOneFinding) {
    addLookup("A", section("a", kRecords));
    std::string twice = section("a", kItems);
    twice.insert(twice.rfind('}'), R"(, "refItems": [])");
    addResource("A", twice);
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("[repeated-key]"), HasSubstr("the value that is ignored"),
                            "1 consequence of these findings not shown; see --show-consequences",
                            "1 error in 1 file; 2 files checked"));
}

TEST_F(ConsequenceTest, BrokenLookupFileHidesThatItemsCannotBeFound) {
    addResource("A", section("a", R"({"href": "a.html", "refpurpose": "",
                                      "refentity": [{"name": "a"}]})"));
    addLookup("A", "{");
    EXPECT_THAT(check({"help"}).out, testing::Not(HasSubstr("[page-without-lookup]")));
    EXPECT_THAT(check({"help", "--show-consequences"}).out, HasSubstr("[page-without-lookup]"));
}

TEST_F(ConsequenceTest, ErrorOfAnotherProductHidesNothing) {
    addResource("A", section("a", kItems));
    addLookup("A", section("a", kRecords));
    addResource("C", "{");
    EXPECT_THAT(check({"help"}).out, HasSubstr("[broken-link]"));
}

TEST_F(ConsequenceTest, FilesInTheFolderOfTheOtherTypeAreOneFindingEach) {
    addResource("A", section("a", kRecords));
    addLookup("A", section("a", kItems));
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("[wrong-folder]"), HasSubstr("[wrong-folder]"),
                            "2 errors in 2 files; 2 files checked"));
}

TEST_F(ConsequenceTest, FileInTheWrongFolderCostsFullResourcesToo) {
    addLookup("A", section("a", kItems));
    docparser_tests::ZipBytes package;
    package.entries = {{.name = "A.json", .content = section("a", kRecords)}};
    add("help/docCatalog/referenceapi_lookup/A.zip", package.build());
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("[wrong-folder]"),
                            HasSubstr("1 consequence of these findings not shown"),
                            "1 error in 1 file; 2 files checked"));
    EXPECT_THAT(check({"help", "--show-consequences"}).out,
                HasSubstr("[lookup-without-resources]"));
}

TEST_F(ConsequenceTest, LinksToAFileInTheWrongFolderAreNoFindings) {
    addResource("A", section("a", kItems));
    addLookup("A", section("a", kRecords));
    addLookup("B", section("b", R"({"href": "b.html", "refpurpose": "", "seealso": []})"));
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("[wrong-folder]"),
                            HasSubstr("1 consequence of these findings not shown"),
                            "1 error in 1 file; 3 files checked"));
    EXPECT_THAT(check({"help", "--show-consequences"}).out, HasSubstr("[broken-link]"));
}

TEST_F(ConsequenceTest, MisnamedLookupFolderIsOneFinding) {
    const std::string item =
        R"({"href": "a.html", "refpurpose": "", "refentity": [{"name": "a"}]})";
    addResource("A", section("a", item));
    addResource("B", section("b", item));
    add("help/docCatalog/referenceapi-lookups/A.json", section("a", kRecords));
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre("help/docCatalog/referenceapi-lookups: error: the folder is ignored: "
                            "its name must be \"referenceapi_lookup\" [misnamed-folder]",
                            "2 consequences of these findings not shown; see "
                            "--show-consequences",
                            "1 error in 1 file; 2 files checked"));
}

TEST_F(ConsequenceTest, RootOfOtherFoldersIsNotCheckedAndNoProductIsReported) {
    addManifest(R"({"topLevelProducts": [{"shortName": "a"}]})");
    add("help/docCatalogs/referenceapi/A.json", section("a", kItems));
    const Outcome outcome = check({"."});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "1 file checked, no problems found\n");
    EXPECT_THAT(outcome.err, HasSubstr("docCatalog\" does not exist; did you mean "
                                       "\"docCatalogs\"?\n"));
}

class LanguageSuffixTest : public CheckTest {
protected:
    LanguageSuffixTest() { addManifest(R"({"supportedDocLanguages": ["en", "de"]})"); }
};

TEST_F(LanguageSuffixTest, SeparatorOrCaseOfLanguageIsWrong) {
    for (const char* name : {"A", "A-de", "A.de", "A de", "A_DE", "B-de"})
        addResource(name, section("a", ""));
    addLookup("A", section("a", ""));
    const std::string separator = "warning: the separator before a language must be \"_\", as in "
                                  "\"A_de\"; the file is read as the English file of a product ";
    EXPECT_THAT(linesOf(check({"."}).out),
                ElementsAre(HasSubstr("A de.json: " + separator + "\"A de\" [unsupp"),
                            HasSubstr("A-de.json: " + separator + "\"A-de\" [unsupp"),
                            HasSubstr("A.de.json: " + separator + "\"A.de\" [unsupp"),
                            HasSubstr("A_DE.json: warning: \"_DE\" differs from the supported "
                                      "language \"de\""),
                            HasSubstr("4 warnings in 4 files")));
}

TEST_F(LanguageSuffixTest, OtherWordBehindASeparatorIsPartOfTheProductName) {
    for (const char* name : {"A", "A-notes", "A-en"})
        addResource(name, section("a", ""));
    EXPECT_THAT(check({"."}).out, Not(HasSubstr("separator")));
}

TEST_F(LanguageSuffixTest, ProductMayHaveOnlyLookupFiles) {
    addResource("A-de", section("a", ""));
    addLookup("A", section("a", ""));
    EXPECT_THAT(check({"."}).out, HasSubstr("referenceapi/A-de.json: warning: the separator"));
}

TEST_F(LanguageSuffixTest, PackageAndItsEntryAreOneFinding) {
    addResource("A", section("a", ""));
    docparser_tests::ZipBytes package;
    package.entries = {{.name = "A_DE.json", .content = section("a", "")}};
    add("help/docCatalog/referenceapi_lookup/A_DE.zip", package.build());
    EXPECT_THAT(linesOf(check({"."}).out),
                ElementsAre(HasSubstr("A_DE.zip: warning: \"_DE\" differs"),
                            HasSubstr("1 consequence of these findings not shown"),
                            HasSubstr("1 warning in 1 file")));
}

TEST_F(LanguageSuffixTest, ProductNameIsCutAtTheFirstSuffix) {
    addResource("A_demo", section("a", ""));
    addLookup("A_demo", section("a", ""));
    addLookup("A_demo_de", section("a", ""));
    addResource("A_design", section("b", ""));
    addLookup("A_design", section("b", ""));
    EXPECT_THAT(linesOf(check({"."}).out),
                ElementsAre(HasSubstr("A_demo_de.json: error: in the language \"de\", the product "
                                      "name \"A_demo\" is cut to \"A\" [cut-product-name]"),
                            HasSubstr("1 consequence of these findings not shown"),
                            HasSubstr("1 error in 1 file; 6 files checked")));
}

} // namespace
} // namespace refdoc_tests
