#include "tests/system/refdoc/check/CheckTest.hpp"

namespace refdoc_tests {
namespace {

class SeededTreeTest : public CheckTest {
protected:
    SeededTreeTest() { seed(); }
};

// The message about a docparser_tests::UnopenableFile.
#ifdef _WIN32
const std::string kUnopenable = "the file can't be read and is skipped: the file cannot be opened";
#else
const std::string kUnopenable = "the file is a link to a file that does not exist";
#endif

const std::string kFindings =
    R"(help/docCatalog/referenceapi/BadKind.json:2:10: error: expected a string, found a number; the whole file is dropped (refItems[0].href) [wrong-kind]
help/docCatalog/referenceapi/Cellar.JSON: error: the file is ignored: its extension must be "json", in lower case [extension-case]
help/docCatalog/referenceapi/Deep.json:2:32: error: values are nested deeper than 32 levels; the whole file is dropped [nesting-too-deep]
help/docCatalog/referenceapi/Folder.json: error: a folder, pipe or device has the name of a resource file [not-a-file]
help/docCatalog/referenceapi/Huge.json: error: the file is not read: larger than the limit of 1073741824 bytes [over-limit]
help/docCatalog/referenceapi/Mark.json:1:1: error: the file begins with a byte-order mark; the whole file is dropped [byte-order-mark]
help/docCatalog/referenceapi/NoJson.json:2:12: error: invalid JSON, so the whole file is dropped: missing colon after the key; add one [malformed-json]
help/docCatalog/referenceapi/NoKey.json:2:1: error: the required key "refpurpose" is missing; the whole file is dropped (a.html) [missing-key]
help/docCatalog/referenceapi/Orchard.json:3:87: warning: unknown word "functon", read as the default "function" (graft, refentity[0].type) [unknown-word]
help/docCatalog/referenceapi/Orchard.json:4:79: warning: unknown key "introducd", ignored; did you mean "introduced"? (prune) [unknown-key]
help/docCatalog/referenceapi/Orchard.json:5:60: warning: the string is read as ASCII: "é" becomes "Ã©" (prune, introduced) [not-ascii]
help/docCatalog/referenceapi/Orchard.json:6:1: note: no lookup record has the link "lost.html": the item can't be found by name (lose) [page-without-lookup]
help/docCatalog/referenceapi/Orchard.json:8:22: warning: no product has an item with the link "nowhere.html" (lose, seealso[2].url) [broken-link]
help/docCatalog/referenceapi/Orchard.json:11:33: error: the section is dropped: an earlier section of the file has the key "kit" (supportPackages[1].baseCode) [repeated-section-key]
    help/docCatalog/referenceapi/Orchard.json:10:33: the section that is kept
help/docCatalog/referenceapi/Orchard.json:12:33: error: the section is dropped: its base code "orchard" is the help folder of the main section (supportPackages[2].baseCode) [base-code-is-help-folder]
    help/docCatalog/referenceapi/Orchard.json:1:52: the section that is kept
help/docCatalog/referenceapi/Orchard.json.bak: warning: the file is ignored: its name is not that of a resource file [ignored-file]
help/docCatalog/referenceapi/Orchard_fr.json: warning: "fr" is not a supported language; the file is read as the English file of a product "Orchard_fr" [unsupported-language]
help/docCatalog/referenceapi_lookup/Broken.zip: error: the package can't be opened and is skipped: Not a zip archive [unreadable-package]
help/docCatalog/referenceapi_lookup/Extra.zip!readme.txt: warning: the entry is not read, but because of it the name of "in/Orchard.json" decides the language, not that of the package [extra-entry]
help/docCatalog/referenceapi_lookup/Gone.json: error: )" +
    kUnopenable + R"( [unreadable-file]
help/docCatalog/referenceapi_lookup/Locked.zip!Locked.json: error: the entry can't be read: it is encrypted [unreadable-entry]
help/docCatalog/referenceapi_lookup/Lonely.json:1:1: warning: the product "Lonely" has no full resources [lookup-without-resources]
help/docCatalog/referenceapi_lookup/Orchard.json:4:1: warning: the record "prune" with the link "prune2.html" is lost in the merge: help/docCatalog/referenceapi_lookup/Extra.zip!in/Orchard.json has at least as many records of the name (prune) [dropped-record]
    help/docCatalog/referenceapi_lookup/Extra.zip!in/Orchard.json:2:1: the record that is kept
help/docCatalog/referenceapi_lookup/Orchard.json:5:68: warning: "deprecated": false has the same effect as true (orchard.prune) [deprecated-false]
help/docCatalog/referenceapi_lookup/Orchard.json:7:1: warning: no item of the product "Orchard" has the link "gone.html" of the record "gone" (gone) [lookup-without-page]
help/docCatalog/referenceapi_lookup/Orchard_de.json:2:1: warning: the translation hides the record "graft" with the link "graft2.html" of help/docCatalog/referenceapi_lookup/Orchard.json because it has at least as many records of the name (graft) [hidden-record]
    help/docCatalog/referenceapi_lookup/Orchard.json:2:1: the hidden record
help/docCatalog/referenceapi_lookup/Wrong_de.zip!Wrong.json: error: the name of the package says "de", the name of its only entry says English; the entry is never read [package-language]
installation.json:4:38: warning: the installed product "ghost" has neither lookup records nor full resources (topLevelProducts[2].shortName) [installed-without-documentation]
packages/help/docCatalog/referenceapi/Orchard.json: warning: the file is never read: the reference root has the product [shadowed-file]
14 errors, 14 warnings, 1 note in 21 files; 17 files checked
)";

TEST_F(SeededTreeTest, FindingsAreSortedByFileAndPosition) {
    EXPECT_EQ(check({"."}), (Outcome{1, kFindings, ""}));
}

TEST(CheckedSamples, AreClean) {
    const Outcome outcome = runProgram({"check", samplesFolder()});
    EXPECT_EQ(outcome, (Outcome{0, "19 files checked, no problems found\n", ""}));
}

TEST(CheckedSamples, AreCleanOneByOne) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(SAMPLES_FOLDER) / "help")) {
        if (entry.is_regular_file()) {
            const Outcome outcome = runProgram({"check", docparser_tests::textOf(entry.path())});
            EXPECT_EQ(outcome.status, 0) << entry.path() << outcome.err;
            EXPECT_THAT(outcome.out, testing::EndsWith(" checked, no problems found\n"));
        }
    }
}

} // namespace
} // namespace refdoc_tests
