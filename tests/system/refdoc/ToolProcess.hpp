#pragma once

#include <cstddef>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace refdoc_tests {

/// How a run of the program ended and what it printed.
struct Outcome {
    int status = -1; ///< exit status; -1 when a signal ended the program
    std::string out; ///< standard output
    std::string err; ///< standard error

    bool operator==(const Outcome&) const = default;

    /// What GoogleTest shows of an outcome.
    friend void PrintTo(const Outcome& outcome, std::ostream* stream) {
        *stream << "status " << outcome.status << "\nout: " << outcome.out
                << "\nerr: " << outcome.err;
    }
};

/// What a run gets besides its arguments. Of the variables that bear on the layout the program sees
/// only those that are given here.
struct Surroundings {
    std::map<std::string, std::string> variables{};
    std::string folder{}; ///< to run in; the current one when empty
    std::string output{}; ///< a device or file for standard output, which is then not collected
};

/// Runs the program and waits for its end.
/// \throws std::system_error  it could not be started
Outcome runProgram(const std::vector<std::string>& arguments,
                   const Surroundings& surroundings = {});

/// Runs the program with a terminal of this width as its standard output.
/// \throws std::system_error  there is no terminal to be had, or the program could not be started
Outcome runOnTerminal(std::size_t columns, const std::vector<std::string>& arguments,
                      const Surroundings& surroundings = {});

} // namespace refdoc_tests
