#pragma once

#include "tools/refdoc/check/findings/Finding.hpp"
#include "tools/refdoc/check/findings/PathNames.hpp"

#include <compare>
#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// A file or package entry with findings.
struct ReportedFile {
    std::string path;      ///< of the file or package; relative below the current folder, with '/'
    std::string entry{};   ///< of a package; else empty
    std::string product{}; ///< empty if the file belongs to no product, or is only related
    SourceFile source{};   ///< where its text can be read again; empty if it is only related
};

/// A location as it is reported.
struct ReportedLocation {
    std::shared_ptr<const ReportedFile> file; ///< not null; shared by the findings of a file
    std::optional<TextPlace> position{};
    std::optional<std::string> pointer{};
    std::string item{}; ///< see Location; empty if there is none

    /// Appends "file:line:column" or "package!entry:line:column", without the numbers if there is
    /// no position.
    void appendTo(std::string& text) const;
    std::string text() const;
};

struct ReportedRelation {
    ReportedLocation location;
    std::string_view message; ///< a literal
};

/// A finding as it is reported. Strings are well-formed UTF-8 without control characters.
struct ReportedFinding {
    const Rule* rule;
    Severity severity; ///< the rule's, or Error because of --werror
    ReportedLocation location;
    std::string message;
    std::string fingerprint{}; ///< independent of line numbers; empty if it is not needed
    std::vector<ReportedRelation> related{};
    std::optional<Fix> fix{};
    std::string cause{};        ///< see Finding; empty if the message says it
    std::size_t morePlaces = 0; ///< findings with this rule and cause that are not listed
    std::size_t files = 0;      ///< that these and this finding are in, if there are any
};

/// Which findings are reported, and how severe they are. Rules are given by their names.
struct ReportSettings {
    std::set<std::string, std::less<>> ignoredRules{};
    std::set<std::string, std::less<>> errorRules{};        ///< their findings count as errors
    bool isAllError = false;                                ///< all warnings count as errors
    std::set<std::string, std::less<>> knownFingerprints{}; ///< findings that are not reported
    bool needsFingerprints = true;                          ///< the report prints fingerprints
};

/// Returns the findings that are reported, sorted by file and position.
/// \param products  of the files that belong to one
std::vector<ReportedFinding> makeReport(Findings findings, const ProductNamesByFile& products,
                                        const PathNames& names, const ReportSettings& settings);

/// The number of files and package entries, and of the findings of each severity.
struct Summary {
    std::size_t checkedFiles = 0; ///< whose content was checked
    std::size_t files = 0;        ///< with findings
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t notes = 0;
    std::size_t consequences = 0; ///< not reported: they follow from other findings

    std::size_t findings() const noexcept { return errors + warnings + notes; }
};

Summary summarize(const std::vector<ReportedFinding>& findings, std::size_t checkedFiles,
                  std::size_t consequences);

} // namespace refdoc::check
