#pragma once

#include "tools/refdoc/check/findings/PathNames.hpp"
#include "tools/refdoc/check/fix/FileChange.hpp"
#include "tools/refdoc/check/report/Report.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// What the fixes of a report change.
struct FixPlan {
    std::vector<FileChange> changes{};   ///< one for each file, sorted by name
    std::vector<std::string> refusals{}; ///< why files are not changed, one message each
    std::size_t packagedCount = 0;       ///< fixes in the entries of packages, which are not made
};

/// Plans the fixes of a report, and reads the files that they change.
///
/// A file is refused if it is not a regular file, if it or a folder of its reference root is a
/// symbolic link, if it has changed since it was checked, or if another file has, or would get, its
/// new name.
/// \param names  those that the report was made with
FixPlan planFixes(const std::vector<ReportedFinding>& findings, const PathNames& names);

/// Returns the text after the edits; empty if it does not have the strings that they replace.
/// \param edits  in any order; equal ones are made once
std::optional<std::string> edited(std::string_view text, std::vector<Edit> edits);

} // namespace refdoc::check
