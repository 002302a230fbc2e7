#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

namespace refdoc {

/// `refdoc check [PATH...]`: what the library drops, changes or passes over in silence. Status
/// Found: no errors; NotFound: errors were found.
/// \throws std::exception  the check could not be carried out
Answer runCheck(const Options& options, const PageSetup& setup);

} // namespace refdoc
