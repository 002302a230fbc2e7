#pragma once

#include "tools/refdoc/Answer.hpp"
#include "tools/refdoc/Options.hpp"
#include "tools/refdoc/PageSetup.hpp"

namespace refdoc {

/// Runs `products`: the folders that are looked at, the languages, the product files that were
/// found, the installed products and support packages.
/// \throws whatever the host services throw
Answer runProducts(const Options& options, const PageSetup& setup);

} // namespace refdoc
