#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

namespace refdoc {

/// `refdoc check [PATH...]`: what the library silently skips, changes or ignores. The status is
/// Found if there are no errors, NotFound if there are some.
/// \throws std::exception  the check could not be completed
Answer runCheck(const Options& options, const PageSetup& setup);

} // namespace refdoc
