#include "tests/support/Schema.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <boost/json/serialize.hpp>

#include <regex>
#include <set>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using docparser_tests::portable;
using docparser_tests::Schema;
using refdoc::check::Rule;
using refdoc::check::rules;

std::string textAt(const json::value& value, std::string_view pointer) {
    return std::string(value.at_pointer(pointer).as_string());
}

// The path of a drive follows a third slash.
std::string uriOfAbsolute(const std::string& path) {
    return (path.starts_with('/') ? "file://" : "file:///") + path;
}

class ReportFormatTest : public CheckTest {
protected:
    ReportFormatTest() { seed(); }

    static Schema schema(const std::string& definition) {
        return Schema("refdoc-check.schema.json", definition);
    }
};

TEST_F(ReportFormatTest, JsonIsOneValidDocument) {
    const json::value report = document(check({".", "--json"}).out);
    EXPECT_EQ(schema("check").problemsOf(report), "");
    EXPECT_EQ(report.at("findings").as_array().size(), SeededTree::kFindingCount);
}

TEST_F(ReportFormatTest, WithoutFindingsJsonIsADocumentAndThereAreNoLines) {
    const auto checkClean = [this](const char* format) {
        return check({samplesFolder() + "/help", format, "--ignore", "page-without-lookup"});
    };
    EXPECT_EQ(checkClean("--json"), (Outcome{0,
                                             "{\n"
                                             "  \"findings\": [],\n"
                                             "  \"statistics\": [],\n"
                                             "  \"summary\": {\n"
                                             "    \"checkedFiles\": 19,\n"
                                             "    \"files\": 0,\n"
                                             "    \"errors\": 0,\n"
                                             "    \"warnings\": 0,\n"
                                             "    \"notes\": 0,\n"
                                             "    \"consequences\": 0\n"
                                             "  }\n"
                                             "}\n",
                                             ""}));
    EXPECT_EQ(checkClean("--jsonl"), (Outcome{0, "", ""}));
}

TEST_F(ReportFormatTest, EachLineIsAFindingOfTheDocument) {
    const json::value report = document(check({".", "--json"}).out);
    const std::vector<json::value> lines = documents(check({".", "--jsonl"}).out);
    EXPECT_EQ(json::array(lines.begin(), lines.end()), report.at("findings"));
    for (const json::value& line : lines)
        EXPECT_EQ(schema("checkLine").problemsOf(line), "");
}

TEST_F(ReportFormatTest, TheSchemaRejectsInvalidFindings) {
    json::value finding = documents(check({".", "--jsonl"}).out).front();
    finding.as_object().erase("line");
    EXPECT_FALSE(schema("checkLine").accepts(finding));
    finding.as_object()["line"] = 0;
    EXPECT_FALSE(schema("checkLine").accepts(finding));
}

TEST_F(ReportFormatTest, JsonHasTheContentOfTheText) {
    const Outcome outcome = check({".", "--json", "--ignore", "dropped-record"});
    EXPECT_EQ(outcome.status, 1);
    const json::value finding = document(outcome.out).at_pointer("/findings/7");
    EXPECT_EQ(finding, document(R"({
        "rule": "missing-key", "severity": "error",
        "path": "help/docCatalog/referenceapi/NoKey.json", "entry": null, "line": 2, "column": 1,
        "pointer": "/refItems/0", "item": "a.html",
        "message": "the required key \"refpurpose\" is missing; the whole file is dropped",
        "fingerprint": ")" + textAt(finding, "/fingerprint") +
                                R"(", "related": [], "fix": null})"));
}

TEST_F(ReportFormatTest, SummaryIsThatOfTheText) {
    const json::value summary = document(check({".", "--json"}).out).at("summary");
    const auto number = [&](const char* key) { return json::serialize(summary.at(key)); };
    EXPECT_THAT(check({"."}).out,
                testing::EndsWith(number("errors") + " errors, " + number("warnings") +
                                  " warnings, " + number("notes") + " note in " + number("files") +
                                  " files; " + number("checkedFiles") + " files checked\n"));
}

TEST_F(ReportFormatTest, FingerprintsAreAllDifferent) {
    std::set<std::string> fingerprints;
    for (const json::value& finding : documents(check({".", "--jsonl"}).out))
        fingerprints.insert(textAt(finding, "/fingerprint"));
    EXPECT_EQ(fingerprints.size(), SeededTree::kFindingCount);
}

TEST_F(ReportFormatTest, FormatsExcludeEachOther) {
    EXPECT_EQ(
        check({".", "--json", "--sarif"}),
        (Outcome{2, "", "refdoc: --json and --sarif cannot be combined; see refdoc --help\n"}));
}

TEST_F(ReportFormatTest, TextIsColouredOnRequest) {
    EXPECT_THAT(check({".", "--color", "always"}).out,
                testing::HasSubstr("\x1b[31merror\x1b[0m: the required key \"refpurpose\""));
}

class HostileTextTest : public CheckTest {};

TEST_F(HostileTextTest, ControlCharactersAreMadeVisible) {
    docparser_tests::ZipBytes package;
    package.entries = {
        {.name = "A\x1b.json",
         .content =
             section("a", R"({"name": "n", "href": "\u001b[2J", "refpurpose": "", "\u0007": 1})")}};
    add("A.zip", package.build());
    EXPECT_EQ(check({"A.zip"}).out,
              "A.zip!A␛.json:1:160: warning: unknown key \"␇\", ignored (n) [unknown-key]\n"
              "1 warning in 1 file; 1 file checked\n");
}

// These tests check what the standard requires of each object. scripts/check-sarif runs the
// validator of the standard's authors.
class SarifTest : public ReportFormatTest {
protected:
    SarifTest() : sarif_(document(check({".", "--sarif"}).out)) {}

    const json::value& run() const { return sarif_.at_pointer("/runs/0"); }
    const json::array& results() const { return run().at("results").as_array(); }

    const json::value& resultOf(std::string_view rule) const {
        for (const json::value& result : results()) {
            if (result.at("ruleId").as_string() == rule)
                return result;
        }
        throw std::out_of_range(std::string(rule));
    }

    json::value sarif_;
};

TEST_F(SarifTest, HasOneRunOfOneTool) {
    EXPECT_EQ(textAt(sarif_, "/version"), "2.1.0");
    EXPECT_EQ(sarif_.at("runs").as_array().size(), 1U);
    EXPECT_EQ(textAt(run(), "/tool/driver/name"), "refdoc");
    EXPECT_EQ(textAt(run(), "/tool/driver/semanticVersion"), REFDOC_VERSION);
    EXPECT_EQ(textAt(run(), "/columnKind"), "unicodeCodePoints");
    const std::string base = textAt(run(), "/originalUriBaseIds/%SRCROOT%/uri");
    EXPECT_EQ(base, uriOfAbsolute(portable(path())) + "/");
}

TEST_F(SarifTest, EachRuleHasHelp) {
    const json::array& described = run().at_pointer("/tool/driver/rules").as_array();
    ASSERT_EQ(described.size(), rules().size());
    for (std::size_t index = 0; index < described.size(); ++index) {
        const Rule& rule = *rules()[index];
        EXPECT_EQ(textAt(described[index], "/id"), rule.name);
        EXPECT_EQ(textAt(described[index], "/help/text"), rule.explanation);
        EXPECT_EQ(textAt(described[index], "/fullDescription/text"), rule.explanation);
        EXPECT_TRUE(textAt(described[index], "/shortDescription/text").ends_with("."));
        EXPECT_EQ(textAt(described[index], "/defaultConfiguration/level"),
                  refdoc::check::toWord(rule.severity));
        EXPECT_TRUE(
            std::regex_match(textAt(described[index], "/name"), std::regex("([A-Z][A-Za-z]*)")));
    }
}

TEST_F(SarifTest, EachResultHasRuleMessageLocationAndFingerprint) {
    EXPECT_EQ(results().size(), SeededTree::kFindingCount);
    const std::set<std::string> levels = {"error", "warning", "note"};
    for (const json::value& result : results()) {
        const auto index = static_cast<std::size_t>(result.at("ruleIndex").to_number<int>());
        ASSERT_LT(index, rules().size());
        EXPECT_EQ(textAt(result, "/ruleId"), rules()[index]->name);
        EXPECT_TRUE(levels.contains(textAt(result, "/level")));
        EXPECT_FALSE(textAt(result, "/message/text").empty());
        EXPECT_EQ(result.at("locations").as_array().size(), 1U);
        EXPECT_TRUE(std::regex_match(textAt(result, "/partialFingerprints/refdocFinding~1v1"),
                                     std::regex("[0-9a-f]{16}(-[0-9]+)?")));
    }
}

TEST_F(SarifTest, PathsAreRelativeUrisAndRegionsStartAtOne) {
    for (const json::value& result : results()) {
        const json::value& place = result.at_pointer("/locations/0/physicalLocation");
        EXPECT_EQ(textAt(place, "/artifactLocation/uriBaseId"), "%SRCROOT%");
        EXPECT_TRUE(std::regex_match(textAt(place, "/artifactLocation/uri"),
                                     std::regex("([A-Za-z0-9._~/-]|%[0-9A-F]{2})+")));
        if (const json::value* region = place.as_object().if_contains("region")) {
            EXPECT_GE(region->at("startLine").to_number<int>(), 1);
            EXPECT_GE(region->at("startColumn").to_number<int>(), 1);
        }
    }
    EXPECT_EQ(resultOf("missing-key").at_pointer("/locations/0/physicalLocation/region"),
              document(R"({"startLine": 2, "startColumn": 1})"));
}

TEST_F(SarifTest, EntryIsLogicalLocationInItsPackage) {
    const json::value& place = resultOf("unreadable-entry").at_pointer("/locations/0");
    EXPECT_EQ(textAt(place, "/physicalLocation/artifactLocation/uri"),
              "help/docCatalog/referenceapi_lookup/Locked.zip");
    EXPECT_EQ(textAt(place, "/logicalLocations/0/name"), "Locked.json");
    EXPECT_FALSE(place.at("physicalLocation").as_object().contains("region"));
}

TEST_F(SarifTest, PositionInAnEntryIsNoRegionOfThePackage) {
    docparser_tests::ZipBytes package;
    package.entries = {{.name = "A.json", .content = "{"}};
    add("A.zip", package.build());
    EXPECT_EQ(document(check({"A.zip", "--sarif"}).out).at_pointer("/runs/0/results/0/locations"),
              document(R"([{
        "physicalLocation": {"artifactLocation": {"uri": "A.zip", "uriBaseId": "%SRCROOT%"}},
        "logicalLocations": [{"name": "A.json", "fullyQualifiedName": "A.zip!A.json:1:2",
                              "kind": "resource"}]}])"));
}

TEST_F(SarifTest, ItemIsLogicalLocation) {
    EXPECT_EQ(resultOf("unknown-key").at_pointer("/locations/0/logicalLocations"),
              document(R"([{"name": "prune", "fullyQualifiedName": "/refItems/2/introducd"}])"));
}

TEST_F(SarifTest, RelatedLocationsHaveMessages) {
    const json::array& related = resultOf("dropped-record").at("relatedLocations").as_array();
    ASSERT_EQ(related.size(), 1U);
    EXPECT_EQ(textAt(related[0], "/message/text"), "in/Orchard.json:2:1: the record that is kept.");
}

} // namespace
} // namespace refdoc_tests
