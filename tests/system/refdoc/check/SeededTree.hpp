#pragma once

#include "tests/support/UnopenableFile.hpp"

#include <filesystem>

namespace refdoc_tests {

/// An install folder in which each rule of `refdoc check` has exactly one finding.
class SeededTree {
public:
    /// \param folder  exists and is empty
    explicit SeededTree(const std::filesystem::path& folder);

private:
    docparser_tests::UnopenableFile gone_;
};

} // namespace refdoc_tests
