#pragma once

#include "tools/refdoc/check/report/Report.hpp"
#include "tools/refdoc/check/report/Statistics.hpp"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// Returns "1 error", "2 errors".
std::string counted(std::size_t count, std::string_view what);

/// Returns "2 errors, 1 warning, 3 notes", without those that there are none of.
std::string countsText(const Summary& summary);

/// Returns the last line of a report for people, without a line feed.
std::string summaryText(const Summary& summary);

// Reports for people get the limit of `--max`: the most findings or, in statistics, the most
// products of a rule. 0 means all. If it is absent, these reports have at most 200 lines.
using Limit = std::optional<std::size_t>;

/// How reports for people look.
struct TextStyle {
    bool color = false;
    std::optional<std::size_t> excerptWidth{}; ///< of the terminal; absent: no excerpts
};

/// Returns a line for each finding, "file:line:column: severity: message (item) [rule]", and a
/// summary, which is the last line. Indented below a finding are an excerpt of the file, related
/// locations and, unless the limit is 0, the number of findings that are grouped with it.
std::string textReport(std::vector<ReportedFinding> findings, const Summary& summary, Limit limit,
                       const TextStyle& style);

/// Returns a line for each rule with its number of findings, a line for each of its products, and
/// the summary.
std::string statisticsReport(const std::vector<ProductCount>& counts, const Summary& summary,
                             Limit limit, const TextStyle& style);

/// Returns the document of `--json`.
std::string jsonReport(const std::vector<ReportedFinding>& findings,
                       const std::vector<ProductCount>& counts, const Summary& summary);

/// Returns the lines of `--jsonl`: one for each finding, as in the document.
std::string jsonLinesReport(const std::vector<ReportedFinding>& findings);

/// Returns a SARIF 2.1.0 document. Paths are relative to %SRCROOT%. Code scanning accepts at most
/// 25,000 results, so the least important findings beyond that are left out. A notification of the
/// run says how many.
/// \param total       the number of findings before any were left out
/// \param isComplete  everything could be checked
/// \param base        the folder that %SRCROOT% stands for, absolute
std::string sarifReport(std::vector<ReportedFinding> findings, std::size_t total, bool isComplete,
                        const std::filesystem::path& base);

/// Returns the fingerprints in a report in one of the last three formats.
/// \throws std::runtime_error  the report has none of these formats
std::set<std::string, std::less<>> readFingerprints(std::string_view report);

/// Returns a line for each rule.
std::string ruleList(bool color);

/// Returns the summary and the explanation of a rule.
std::string ruleText(const Rule& rule, bool color);

} // namespace refdoc::check
