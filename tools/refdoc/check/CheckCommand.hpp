#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `check`: what the library silently drops, changes or ignores. Its answer is negative
/// if errors were found. It throws std::exception if the check cannot be carried out.
CommandEntry checkCommand();

} // namespace refdoc
