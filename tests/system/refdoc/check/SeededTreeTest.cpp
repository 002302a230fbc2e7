#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <algorithm>
#include <map>

namespace refdoc_tests {
namespace {

using docparser_tests::portable;
using testing::HasSubstr;

class SeededTreeTest : public CheckTest {
protected:
    SeededTreeTest() { seed(); }
};

// What is said of a docparser_tests::UnopenableFile.
#ifdef _WIN32
const std::string kUnopenable =
    "the file can't be read and counts as missing: the file cannot be opened";
#else
const std::string kUnopenable = "there is no file behind the name: a link leads nowhere";
#endif

const std::string kFindings =
    R"(help/docCatalog/referenceapi/BadKind.json:2:10: error: expected a string, found a number; the whole file is dropped [wrong-kind]
help/docCatalog/referenceapi/Cellar.JSON: error: the file is ignored: its extension has to be "json", in lower case [extension-case]
help/docCatalog/referenceapi/Deep.json:2:32: error: the nesting is too deep from here on; the whole file is dropped [nesting-too-deep]
help/docCatalog/referenceapi/Folder.json: error: a folder, pipe or device bears the name of a resource file [not-a-file]
help/docCatalog/referenceapi/Huge.json: error: the file is not read: larger than the limit of 1073741824 bytes [over-limit]
help/docCatalog/referenceapi/Mark.json:1:1: error: the text begins with a byte-order mark; the whole file is dropped [byte-order-mark]
help/docCatalog/referenceapi/NoJson.json:2:13: error: invalid JSON: syntax error; the whole file is dropped [malformed-json]
help/docCatalog/referenceapi/NoKey.json:2:1: error: the required key "refpurpose" is missing; the whole file is dropped [missing-key]
help/docCatalog/referenceapi/Orchard.json:3:87: warning: unknown word "functon" counts as "function"; did you mean "function"? [unknown-word]
help/docCatalog/referenceapi/Orchard.json:4:79: warning: the key "introducd" has no meaning here and is ignored; did you mean "introduced"? [unknown-key]
help/docCatalog/referenceapi/Orchard.json:5:60: warning: the text is read as ASCII, and "é" becomes "Ã©" [not-ascii]
help/docCatalog/referenceapi/Orchard.json:6:1: note: no lookup record has the link "lost.html": the item is not found by name [page-without-lookup]
help/docCatalog/referenceapi/Orchard.json:8:22: warning: no product has an item with the link "nowhere.html" [broken-link]
help/docCatalog/referenceapi/Orchard.json:11:33: error: the section is dropped: an earlier section of the file has the key "kit" [repeated-section-key]
    help/docCatalog/referenceapi/Orchard.json:10:33: the section that is kept
help/docCatalog/referenceapi/Orchard.json:12:33: error: the section is dropped: its base code "orchard" is the help folder of the main section [base-code-is-help-folder]
    help/docCatalog/referenceapi/Orchard.json:1:52: the section that is kept
help/docCatalog/referenceapi/Orchard.json.bak: warning: the file is ignored: its name is not that of a resource file [ignored-file]
help/docCatalog/referenceapi/Orchard_fr.json: warning: "fr" is no supported language; the file counts as English, of a product "Orchard_fr" [unsupported-language]
help/docCatalog/referenceapi_lookup/Broken.zip: error: the package can't be opened, and nothing of it is used: Not a zip archive [unreadable-package]
help/docCatalog/referenceapi_lookup/Extra.zip!readme.txt: warning: the entry is not read, but counts: the name of "in/Orchard.json" decides on its language, and not that of the package [extra-entry]
help/docCatalog/referenceapi_lookup/Gone.json: error: )" +
    kUnopenable + R"( [unreadable-file]
help/docCatalog/referenceapi_lookup/Locked.zip!Locked.json: error: the entry can't be delivered: it is encrypted [unreadable-entry]
help/docCatalog/referenceapi_lookup/Lonely.json:1:1: warning: there are no full resources of the product "Lonely" [lookup-without-resources]
help/docCatalog/referenceapi_lookup/Orchard.json:4:1: warning: the record "prune" with the link "prune2.html" is lost in the merge: help/docCatalog/referenceapi_lookup/Extra.zip!in/Orchard.json has no fewer records of the name [dropped-record]
    help/docCatalog/referenceapi_lookup/Extra.zip!in/Orchard.json:2:1: the record that is kept
help/docCatalog/referenceapi_lookup/Orchard.json:5:68: warning: "deprecated": false counts as true; the key alone decides [deprecated-false]
help/docCatalog/referenceapi_lookup/Orchard.json:7:1: warning: no item of the product "Orchard" has the link "gone.html" of the record "gone" [lookup-without-page]
help/docCatalog/referenceapi_lookup/Orchard_de.json:2:1: warning: the translation hides the record "graft" with the link "graft2.html" of help/docCatalog/referenceapi_lookup/Orchard.json, for it has no fewer records of the name [hidden-record]
    help/docCatalog/referenceapi_lookup/Orchard.json:2:1: the hidden record
help/docCatalog/referenceapi_lookup/Wrong_de.zip!Wrong.json: error: the package's name says "de", that of its one entry English; the entry is never read [package-language]
installation.json:4:38: warning: the installed product "ghost" has neither lookup records nor full resources [installed-without-documentation]
packages/help/docCatalog/referenceapi/Orchard.json: warning: the file is never read: the reference root has the product [shadowed-file]
14 errors, 14 warnings, 1 note in 21 files
)";

TEST_F(SeededTreeTest, EachFindingStandsAtItsPlace) {
    EXPECT_EQ(check({"."}), (Outcome{1, kFindings, ""}));
}

TEST_F(SeededTreeTest, EachRuleIsFoundOnce) {
    std::map<std::string, int> counts;
    for (const std::string& line : linesOf(kFindings)) {
        const std::size_t start = line.rfind('[');
        if (line.ends_with(']') && !line.starts_with(' '))
            ++counts[line.substr(start + 1, line.size() - start - 2)];
    }
    std::map<std::string, int> once;
    for (const refdoc::check::Rule& rule : refdoc::check::rules())
        once.emplace(rule.name, 1);
    EXPECT_EQ(counts, once);
}

TEST_F(SeededTreeTest, TheReferenceRootFindsItsInstallFolder) {
    EXPECT_EQ(check({"help"}), (Outcome{1, kFindings, ""}));
}

TEST_F(SeededTreeTest, WithoutAPathTheCurrentRootsAreChecked) {
    const Outcome outcome = run({"check"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(linesOf(outcome.out).size(), linesOf(kFindings).size());
    EXPECT_THAT(outcome.out, HasSubstr(portable(path("help/docCatalog/referenceapi/NoKey.json")) +
                                       ":2:1: error: the required key \"refpurpose\" is missing"));
}

TEST_F(SeededTreeTest, FindingsOfTwoLanguagesMoreAreStillReportedOnce) {
    const Outcome outcome = check({".", "--langs", "en,de,ja,fi"});
    EXPECT_EQ(outcome.out, kFindings);
}

TEST(CheckedSamples, AreClean) {
    const Outcome outcome = runProgram({"check", SAMPLES_FOLDER});
    EXPECT_EQ(outcome, (Outcome{0, "nothing found\n", ""}));
}

TEST(CheckedSamples, AreCleanOneByOne) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(SAMPLES_FOLDER) / "help")) {
        if (entry.is_regular_file()) {
            const Outcome outcome = runProgram({"check", docparser_tests::textOf(entry.path())});
            EXPECT_EQ(outcome, (Outcome{0, "nothing found\n", ""})) << entry.path();
        }
    }
}

} // namespace
} // namespace refdoc_tests
