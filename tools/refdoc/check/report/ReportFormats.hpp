#pragma once

#include "tools/refdoc/check/report/Report.hpp"

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// Returns "1 error", "2 errors".
std::string counted(std::size_t count, std::string_view what);

/// Returns a line for each finding, "file:line:column: severity: message [rule]", with its related
/// locations indented below it, and a summary at the end.
std::string textReport(const std::vector<ReportedFinding>& findings, const Summary& summary,
                       bool color);

/// Returns the document of `--json`: the findings and their summary.
std::string jsonReport(const std::vector<ReportedFinding>& findings, const Summary& summary);

/// Returns the lines of `--jsonl`: one for each finding, as in the document.
std::string jsonLinesReport(const std::vector<ReportedFinding>& findings);

/// Returns a SARIF 2.1.0 document. Paths are relative to %SRCROOT%.
/// \param base  the folder that %SRCROOT% stands for, absolute
std::string sarifReport(const std::vector<ReportedFinding>& findings,
                        const std::filesystem::path& base);

/// Returns the fingerprints in a report in one of the last three formats.
/// \throws std::runtime_error  the report has none of these formats
std::set<std::string, std::less<>> readFingerprints(std::string_view report);

/// Returns a line for each rule.
std::string ruleList(bool color);

/// Returns the summary and the explanation of a rule.
std::string ruleText(const Rule& rule, bool color);

} // namespace refdoc::check
