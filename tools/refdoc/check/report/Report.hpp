#pragma once

#include "tools/refdoc/check/rules/Finding.hpp"
#include "tools/refdoc/check/rules/PathNames.hpp"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace refdoc::check {

/// A place as it is reported.
struct ReportedSpot {
    std::string path;  ///< of the file or package; relative below the current folder, with '/'
    std::string entry; ///< of a package; else empty
    std::optional<TextPlace> place;
    std::optional<std::string> pointer;

    /// "file:line:column", "package!entry:line:column", or without the places.
    std::string text() const;
};

struct ReportedRelation {
    ReportedSpot spot;
    std::string message;
};

/// A finding as it is reported. Texts are well-formed UTF-8 without control characters.
struct ReportedFinding {
    const Rule* rule;
    Severity severity; ///< the rule's, unless --werror made an error of it
    ReportedSpot spot;
    std::string message;
    std::string fingerprint; ///< the same whatever lines are put before the finding
    std::vector<ReportedRelation> related;
};

/// How findings are chosen and weighed. Rules go by their names.
struct ReportSettings {
    std::set<std::string, std::less<>> ignoredRules{};
    std::set<std::string, std::less<>> errorRules{}; ///< their findings count as errors
    bool isAllError = false;                         ///< all findings but notes count as errors
    std::set<std::string, std::less<>> knownFingerprints{}; ///< what is not reported again
};

/// Finds the places of the findings, in one pass over each file that has some, and puts them in the
/// order of files and places.
std::vector<ReportedFinding> makeReport(std::vector<Finding> findings, const PathNames& names,
                                        const ReportSettings& settings);

/// The number of findings of each severity, and of files and package entries that have findings.
struct Summary {
    std::size_t files = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;
};

Summary summarize(const std::vector<ReportedFinding>& findings);

} // namespace refdoc::check
