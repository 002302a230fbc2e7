#pragma once

#include <string>
#include <vector>

namespace refdoc {

/// How the tool ends, as its caller sees it.
enum class ExitStatus : int {
    Found = 0,
    NotFound = 1,   ///< nothing for the product, or for one of the HREFs or NAMEs
    WrongUsage = 2, ///< the command line can't be understood
    Failed = 3      ///< anything else
};

/// What a command has to say. Commands print nothing themselves.
struct Answer {
    ExitStatus status = ExitStatus::Found;
    std::string output{};                  ///< for standard output, as it stands; UTF-8
    std::string pager{};                   ///< the command to show it through; empty: none
    std::vector<std::string> complaints{}; ///< for standard error, a line each, without the tool's
                                           ///< name before it; UTF-8, names as they came
};

} // namespace refdoc
