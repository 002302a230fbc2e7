#pragma once

#include "tools/refdoc/check/report/Report.hpp"

#include <cstddef>
#include <functional>
#include <vector>

namespace refdoc::check {

// What a report leaves out, so that large ones stay readable. The order of the findings that remain
// does not change.

/// Keeps the first of more than three findings that have the same rule and the same cause, and
/// counts the others in it.
std::vector<ReportedFinding> groupRepeated(std::vector<ReportedFinding> findings);

/// Keeps the most important findings: errors, then the first finding of each rule, the second of
/// each rule and so on, so that frequent findings do not displace rare ones.
/// \param budget  the most that the findings may cost together
/// \param costOf  the cost of a finding
std::vector<ReportedFinding>
keepMostImportant(std::vector<ReportedFinding> findings, std::size_t budget,
                  const std::function<std::size_t(const ReportedFinding&)>& costOf);

/// Keeps at most `count` findings, the most important ones.
std::vector<ReportedFinding> keepMostImportant(std::vector<ReportedFinding> findings,
                                               std::size_t count);

} // namespace refdoc::check
