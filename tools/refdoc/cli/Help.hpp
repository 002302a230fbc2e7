#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>

namespace refdoc {

/// Returns what `--help` prints: the help of the command, or of the program if it is null. UTF-8,
/// at most 80 columns wide.
std::string helpText(const CommandTable& table, const CommandEntry* command);

} // namespace refdoc
