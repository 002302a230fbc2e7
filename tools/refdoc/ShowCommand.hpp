#pragma once

#include "tools/refdoc/Answer.hpp"
#include "tools/refdoc/Options.hpp"
#include "tools/refdoc/PageSetup.hpp"

namespace refdoc {

/// Runs `show`: the full records of one product, or those of its items that have one of the HREFs.
///
/// A product without resources, and each HREF that the product has not, is a complaint, with up to
/// three names that may be meant.
/// \throws whatever the host services throw
Answer runShow(const Options& options, const PageSetup& setup);

} // namespace refdoc
