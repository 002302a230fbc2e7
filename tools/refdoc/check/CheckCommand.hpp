#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `check`: what the library silently skips, changes or ignores. Its answer is negative
/// if errors were found. It throws std::exception if the check could not be completed.
CommandEntry checkCommand();

} // namespace refdoc
