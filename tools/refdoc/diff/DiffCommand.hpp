#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// Returns `refdoc diff`.
CommandEntry diffCommand();

/// Returns `refdoc git-diff`, which git calls to compare two versions of a file.
CommandEntry gitDiffCommand();

} // namespace refdoc
