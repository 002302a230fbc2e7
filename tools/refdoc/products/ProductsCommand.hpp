#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

namespace refdoc {

/// Runs `products`: folders, languages, product files, installed products and support packages.
/// \throws whatever the host services throw
Answer runProducts(const Options& options, const PageSetup& setup);

} // namespace refdoc
