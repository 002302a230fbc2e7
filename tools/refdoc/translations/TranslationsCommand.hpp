#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `translations`: how complete and how current each translation is.
CommandEntry translationsCommand();

} // namespace refdoc
