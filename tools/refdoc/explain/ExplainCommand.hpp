#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `explain`: where the sections and records of a product, of one of its items, or of a
/// name in the lookup index come from, what they replaced, and what happened to each file.
///
/// A product without resources, an href that the product lacks and a name that the index lacks is a
/// complaint, with up to three similar names; the files are explained nevertheless. The command
/// throws std::runtime_error if files change between the library's reading and its own.
CommandEntry explainCommand();

} // namespace refdoc
