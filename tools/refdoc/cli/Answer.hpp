#pragma once

#include <functional>
#include <string>
#include <vector>

namespace refdoc {

/// The exit status of the tool.
enum class ExitStatus : int {
    Success = 0,
    Negative = 1,   ///< the answer is no: a name was not found, or a check found errors
    WrongUsage = 2, ///< the command line is invalid
    Failed = 3      ///< any other failure
};

/// The result of a command. Commands print nothing themselves.
struct Answer {
    ExitStatus status = ExitStatus::Success;
    std::string output{};                  ///< for stdout, printed unchanged; UTF-8
    std::string pager{};                   ///< the command that shows the output; empty: none
    std::vector<std::string> complaints{}; ///< for stderr, one line each, without the program's
                                           ///< name; UTF-8, may contain control characters
    /// What the command does after this has been printed; empty if it has ended. Its answer is
    /// printed next and has the exit status.
    /// \throws std::exception, foundation::core::except::IException  the command failed
    std::function<Answer()> remainder{};
};

} // namespace refdoc
