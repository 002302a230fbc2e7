#pragma once

#include "tests/support/NativeText.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"
#include "tests/system/refdoc/check/SeededTree.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace refdoc_tests {

/// A test of `refdoc check`, which is run in the folder of the test.
class CheckTest : public RefdocTest {
protected:
    /// Runs `refdoc check` with the arguments after it.
    Outcome check(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "check");
        return runProgram(arguments, {.variables = {}, .folder = path(), .output = {}});
    }

    /// Adds an empty folder of lookup files, which a root with full resources should have.
    void addLookupFolder() const {
        std::filesystem::create_directories(
            docparser_tests::pathOf(path("help/docCatalog/referenceapi_lookup")));
    }

    void seed() { tree_.emplace(docparser_tests::pathOf(path())); }

    /// The text of a file below the test's folder.
    std::string read(const std::string& file) const {
        std::ifstream stream(path(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::optional<SeededTree> tree_;
};

} // namespace refdoc_tests
