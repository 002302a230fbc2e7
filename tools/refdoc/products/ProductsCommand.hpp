#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc {

/// The command `products`: the folders that are read, the languages, the product files, and the
/// installed products and support packages.
CommandEntry productsCommand();

} // namespace refdoc
