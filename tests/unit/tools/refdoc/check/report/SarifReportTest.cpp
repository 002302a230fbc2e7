#include "tests/support/NativeText.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using namespace refdoc::check;

TEST(SarifReportTest, PathsAreEscaped) {
    const std::string drive = docparser_tests::textOf(std::filesystem::current_path().root_name());
    const std::string root = (drive.empty() ? "file://" : "file:///") + drive;
    const Rule& rule = *rules().front();
    const auto locationOf = [](std::string path) {
        return ReportedLocation{
            std::make_shared<const ReportedFile>(ReportedFile{std::move(path), ""}), {}, {}};
    };
    const std::string report =
        sarifReport({{&rule, rule.severity, locationOf("a b/ä:c.json"), "m", "0", {}},
                     {&rule, rule.severity, locationOf(drive + "/x y.json"), "m", "1", {}}},
                    "/base folder");
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
        .location = {std::make_shared<const ReportedFile>(ReportedFile{"A.json", std::move(entry)}),
                     {},
                     {}},
        .message = "m",
        .fingerprint = "0",
        .related = {},
        .fix = std::move(fix)};
    const json::value report = json::parse(sarifReport({finding}, "/base"));
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

} // namespace
} // namespace refdoc_tests
