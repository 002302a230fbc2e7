#pragma once

#include "tools/refdoc/check/findings/PathNames.hpp"
#include "tools/refdoc/check/fix/Diff.hpp"
#include "tools/refdoc/check/fix/FileChange.hpp"
#include "tools/refdoc/check/report/Report.hpp"
#include "tools/refdoc/cli/Answer.hpp"

#include <functional>
#include <string>
#include <vector>

namespace refdoc::check {

/// The report of a check.
struct CheckedFiles {
    std::vector<ReportedFinding> findings{};
    Summary summary{};
    std::vector<std::string> complaints{}; ///< why something could not be checked
    std::vector<std::string> notes{};      ///< what was not checked because of a finding
};

/// What fixing needs from the command.
struct FixHost {
    std::function<CheckedFiles()> check;
    std::function<void(const FileChange&)> onWritten; ///< called after each file that is written
};

enum class FixMode { Show, Write };

/// Fixes what a check finds. The answer is a diff, with a summary as the last complaints.
///
/// In FixMode::Write, checks and fixes again until there is nothing to fix: a renamed file is
/// checked only under its new name. A file that can't be written is left out of the diff and is a
/// complaint. The status is Negative if a last check finds errors, and Failed if not everything
/// could be checked or written.
/// \param names  those that the reports are made with
Answer fixFindings(const FixHost& host, const PathNames& names, FixMode mode, DiffStyle style);

} // namespace refdoc::check
