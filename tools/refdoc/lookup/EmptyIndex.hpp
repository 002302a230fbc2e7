#pragma once

#include <string>

namespace refdoc {

/// Returns why the lookup index of the current root and language has no entries, as a message: the
/// folder does not exist, or has no lookup files, or its files have no valid records.
std::string emptyIndexReason();

} // namespace refdoc
