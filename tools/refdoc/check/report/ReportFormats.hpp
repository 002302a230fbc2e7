#pragma once

#include "tools/refdoc/check/report/Report.hpp"

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// Returns a line for each finding, "file:line:column: severity: message [rule]", with its related
/// locations indented below it, and a summary at the end.
std::string textReport(const std::vector<ReportedFinding>& findings, bool color);

/// JSON Lines: one object a finding, as schema/refdoc_check.schema.json says.
std::string jsonReport(const std::vector<ReportedFinding>& findings);

/// A SARIF 2.1.0 document. Paths are relative to %SRCROOT%.
/// \param base  the folder that %SRCROOT% stands for, absolute
std::string sarifReport(const std::vector<ReportedFinding>& findings,
                        const std::filesystem::path& base);

/// The fingerprints in a report of the last two kinds.
/// \throws std::runtime_error  the text is neither
std::set<std::string, std::less<>> readFingerprints(std::string_view report);

/// Returns a line for each rule.
std::string ruleList(bool color);

/// Returns the summary and the explanation of a rule.
std::string ruleText(const Rule& rule, bool color);

} // namespace refdoc::check
