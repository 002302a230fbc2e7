#include "tests/support/NativeText.hpp"
#include "tests/unit/tools/refdoc/check/report/Findings.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using namespace refdoc::check;

TEST(SarifReportTest, PathsAreEscaped) {
    const std::string drive = docparser_tests::textOf(std::filesystem::current_path().root_name());
    const std::string root = (drive.empty() ? "file://" : "file:///") + drive;
    FindingMaker maker;
    std::vector<ReportedFinding> findings;
    for (const std::string& path : {std::string("a b/ä:c.json"), drive + "/x y.json"}) {
        maker.begin(path);
        findings.push_back(maker.make(*rules().front(), "m"));
    }
    const std::string report = sarifReport(findings, findings.size(), true, "/base folder");
    const json::value run = json::parse(report).at_pointer("/runs/0");
    EXPECT_EQ(run.at_pointer("/results/0/locations/0/physicalLocation/artifactLocation"),
              json::value({{"uri", "a%20b/%C3%A4%3Ac.json"}, {"uriBaseId", "%SRCROOT%"}}));
    EXPECT_EQ(run.at_pointer("/results/1/locations/0/physicalLocation/artifactLocation"),
              json::value({{"uri", root + "/x%20y.json"}}));
    EXPECT_EQ(run.at_pointer("/originalUriBaseIds/%SRCROOT%/uri"), "file:///base%20folder/");
}

// The "fixes" of the result for one finding.
json::value fixesOf(Fix fix, std::string entry = {}) {
    const Rule& rule = *rules().front();
    const ReportedFinding finding{
        .rule = &rule,
        .severity = rule.severity,
        .location = {.file = std::make_shared<const ReportedFile>(
                         ReportedFile{.path = "A.json", .entry = std::move(entry)})},
        .message = "m",
        .fix = std::move(fix)};
    const json::value report = json::parse(sarifReport({finding}, 1, true, "/base"));
    const json::value* fixes =
        report.at_pointer("/runs/0/results/0").as_object().if_contains("fixes");
    return fixes ? *fixes : json::value();
}

Edit edit(TextPlace position, std::string original, std::string replacement) {
    return {.location = {.position = position},
            .original = std::move(original),
            .replacement = std::move(replacement)};
}

TEST(SarifReportTest, FixReplacesCharacters) {
    EXPECT_EQ(
        fixesOf({.edits = {edit({.offset = 30, .line = 2, .column = 5}, "\"näme\"", "\"name\""),
                           edit({.offset = 50, .line = 3, .column = 1}, "\"a\"", "\"b\"")}}),
        json::parse(R"([{
        "description": {"text": "Replace \"näme\" with \"name\"."},
        "artifactChanges": [{
            "artifactLocation": {"uri": "A.json", "uriBaseId": "%SRCROOT%"},
            "replacements": [
                {"deletedRegion": {"startLine": 2, "startColumn": 5, "endColumn": 11},
                 "insertedContent": {"text": "\"name\""}},
                {"deletedRegion": {"startLine": 3, "startColumn": 1, "endColumn": 4},
                 "insertedContent": {"text": "\"b\""}}]}]}])"));
}

TEST(SarifReportTest, FixRemovesByteOrderMarkAsBytes) {
    EXPECT_EQ(fixesOf({.edits = {edit({}, "\xEF\xBB\xBF", "")}}), json::parse(R"([{
        "description": {"text": "Remove the byte-order mark."},
        "artifactChanges": [{
            "artifactLocation": {"uri": "A.json", "uriBaseId": "%SRCROOT%"},
            "replacements": [{"deletedRegion": {"byteOffset": 0, "byteLength": 3}}]}]}])"));
}

TEST(SarifReportTest, RenamesAndEntriesHaveNoFix) {
    EXPECT_EQ(fixesOf({.newName = u"A.json"}), json::value());
    EXPECT_EQ(fixesOf({.edits = {edit({}, "\"a\"", "\"b\"")}}, "in/A.json"), json::value());
}

TEST(SarifReportTest, SaysHowManyFindingsExceedTheLimitOfCodeScanning) {
    FindingMaker maker;
    maker.begin("a.json");
    std::vector<ReportedFinding> findings(25001, maker.make(*findRule("broken-link"), "m"));
    findings.push_back(maker.make(*findRule("missing-key"), "m"));
    const json::value run =
        json::parse(sarifReport(findings, findings.size(), true, "/")).at_pointer("/runs/0");
    const json::array& results = run.at("results").as_array();
    EXPECT_EQ(results.size(), 25000U);
    EXPECT_EQ(results.back().at("ruleId"), "missing-key");
    EXPECT_EQ(run.at_pointer("/invocations/0/toolExecutionNotifications"), json::parse(R"([
        {"level": "warning", "message": {"text":
        "2 of 25002 findings are left out because the report is limited to 25000 results."}}])"));
}

TEST(SarifReportTest, SaysWhetherEverythingWasChecked) {
    for (const bool isComplete : {false, true})
        EXPECT_EQ(
            json::parse(sarifReport({}, 0, isComplete, "/")).at_pointer("/runs/0/invocations"),
            json::value({{{"executionSuccessful", isComplete}}}));
}

} // namespace
} // namespace refdoc_tests
