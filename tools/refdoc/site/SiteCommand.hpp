#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `site`: writes the documentation of all products, in all languages, as web pages.
CommandEntry siteCommand();

} // namespace refdoc
