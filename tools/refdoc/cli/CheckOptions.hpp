#pragma once

#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// What `refdoc check` has of its own on the command line. Texts are UTF-8.
struct CheckOptions {
    bool isSarif = false;
    std::optional<std::string> baseline{}; ///< file of a former report
    bool isAllError = false;               ///< --werror without a rule
    std::vector<std::string> errorRules{};
    std::vector<std::string> ignoredRules{};
    bool listsRules = false;
    std::optional<std::string> explainedRule{};
};

} // namespace refdoc
