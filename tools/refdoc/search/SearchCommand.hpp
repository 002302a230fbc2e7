#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `search`: the lookup entries whose name, link or purpose matches every given text,
/// the best matches first. No match is a complaint.
CommandEntry searchCommand();

} // namespace refdoc
