#pragma once

#include "tests/system/refdoc/check/rules/ExampleFolder.hpp"

#include <string>
#include <vector>

namespace refdoc_tests {

/// An install folder that violates one rule, and the finding that `refdoc check` prints. The lines
/// after the first name related locations.
struct RuleExample {
    std::string rule;
    std::vector<ExampleFile> files;
    std::string finding;
};

/// One example for each rule. docs/check.md shows them.
const std::vector<RuleExample>& ruleExamples();

} // namespace refdoc_tests
