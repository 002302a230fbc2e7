#pragma once

#include <filesystem>

namespace refdoc_tests {

/// Writes an install folder in which each rule of `refdoc check` has exactly one finding.
/// \param folder  is there and empty
void writeSeededTree(const std::filesystem::path& folder);

} // namespace refdoc_tests
