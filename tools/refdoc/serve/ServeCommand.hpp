#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `serve`: shows the pages of a site to browsers on this machine, always from the
/// current files.
CommandEntry serveCommand();

} // namespace refdoc
