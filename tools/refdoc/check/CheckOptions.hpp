#pragma once

#include "tools/refdoc/cli/CommandLine.hpp"

#include <optional>
#include <string>
#include <vector>

namespace refdoc::check {

/// What `--baseline`, `--werror` and `--ignore` say.
struct CheckOptions {
    std::optional<std::string> baseline{}; ///< the file of an earlier report
    bool isAllError = false;               ///< --werror without a rule
    std::vector<std::string> errorRules{};
    std::vector<std::string> ignoredRules{};
};

/// Returns the options of `check`.
std::vector<OptionEntry> checkOptions();

CheckOptions readCheckOptions(const OptionValues& values);

} // namespace refdoc::check
