#pragma once

#include "tools/refdoc/Answer.hpp"
#include "tools/refdoc/Options.hpp"
#include "tools/refdoc/PageSetup.hpp"

namespace refdoc {

/// `refdoc check [PATH...]`: what the library drops, changes or passes over in silence. Status
/// Found: no errors; NotFound: errors were found.
/// \throws std::exception  the check could not be carried out
Answer runCheck(const Options& options, const PageSetup& setup);

} // namespace refdoc
