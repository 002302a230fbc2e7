#pragma once

#include "tools/refdoc/check/report/Report.hpp"

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// A line for each finding, "file:line:column: severity: message [rule]", what is related to it
/// indented below it, and a summary at the end.
std::string textReport(const std::vector<ReportedFinding>& findings, bool color);

/// The document of `--json`: the findings and their summary.
std::string jsonReport(const std::vector<ReportedFinding>& findings);

/// The lines of `--jsonl`: one for each finding, as the document has it.
std::string jsonLinesReport(const std::vector<ReportedFinding>& findings);

/// A SARIF 2.1.0 document. Paths are relative to %SRCROOT%.
/// \param base  the folder that %SRCROOT% stands for, absolute
std::string sarifReport(const std::vector<ReportedFinding>& findings,
                        const std::filesystem::path& base);

/// Returns the fingerprints in a report in one of the last three formats.
/// \throws std::runtime_error  the report has none of these formats
std::set<std::string, std::less<>> readFingerprints(std::string_view report);

/// The rules, a line each.
std::string ruleList(bool color);

/// What there is to say about a rule.
std::string ruleText(const Rule& rule, bool color);

} // namespace refdoc::check
