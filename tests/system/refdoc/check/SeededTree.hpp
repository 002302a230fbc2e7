#pragma once

#include "tests/support/UnopenableFile.hpp"

#include <cstddef>
#include <filesystem>

namespace refdoc_tests {

/// An install folder with findings of many rules, to test reports as a whole.
class SeededTree {
public:
    static constexpr std::size_t kFindingCount = 29;

    /// \param folder  exists and is empty
    explicit SeededTree(const std::filesystem::path& folder);

private:
    docparser_tests::UnopenableFile gone_;
};

} // namespace refdoc_tests
