#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// Returns the table of refdoc: its commands, options and the texts of its manual page.
const CommandTable& commandTable();

} // namespace refdoc
