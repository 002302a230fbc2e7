#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

namespace refdoc {

/// Runs `explain`: where the sections and records of a product, of one of its items, or of a name
/// of the lookup index come from, what they took the place of, and what became of each file.
///
/// A product without resources, an HREF that it has not and a NAME that the index has not are a
/// complaint each, with up to three that are near to it; the files are told of all the same.
/// \throws std::runtime_error  files changed between the library's reading and the tool's
/// \throws whatever the host services throw
Answer runExplain(const Options& options, const PageSetup& setup);

} // namespace refdoc
