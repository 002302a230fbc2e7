#pragma once

#include "tools/refdoc/Answer.hpp"
#include "tools/refdoc/Options.hpp"
#include "tools/refdoc/PageSetup.hpp"

namespace refdoc {

/// Runs `lookup`: the lookup index, or the entries of the NAMEs.
///
/// Each NAME that the index has not is a complaint, with up to three names that may be meant.
/// An empty index is no failure.
/// \throws whatever the host services throw
Answer runLookup(const Options& options, const PageSetup& setup);

} // namespace refdoc
