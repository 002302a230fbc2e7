#pragma once

#include <cstddef>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc_tests {

/// The exit status and the output of a run.
struct Outcome {
    int status = -1; ///< exit status; -1 if a signal ended the program
    std::string out; ///< standard output
    std::string err; ///< standard error

    bool operator==(const Outcome&) const = default;

    /// Prints the outcome for GoogleTest.
    friend void PrintTo(const Outcome& outcome, std::ostream* stream) {
        *stream << "status " << outcome.status << "\nout: " << outcome.out
                << "\nerr: " << outcome.err;
    }
};

/// The environment of a run. The program inherits all variables except those that it reads itself,
/// such as COLUMNS and REFDOC_ROOT.
struct Surroundings {
    std::map<std::string, std::string> variables{}; ///< added to the inherited ones
    std::string folder{};                           ///< current folder; empty: an empty folder
    std::string output{}; ///< file or device for standard output, which is then not captured
    bool isErrorOnTerminal = false; ///< for runOnTerminal(): standard error is the terminal too
};

/// Returns whether the program reads the environment variable.
bool affectsProgram(std::string_view variable);

/// Returns the current folder of a run.
std::string currentFolder(const Surroundings& surroundings);

/// Returns the folder samples/. On Windows, a path that begins with "/" is relative to the drive of
/// the current folder, so it needs the drive of the test.
std::string samplesFolder();

/// Runs the program and waits for its end.
/// \throws std::system_error  the program cannot be started
Outcome runProgram(const std::vector<std::string>& arguments,
                   const Surroundings& surroundings = {});

/// Runs the program with a terminal of this width as its standard output.
/// \throws std::system_error  no terminal is available, or the program cannot be started
Outcome runOnTerminal(std::size_t columns, const std::vector<std::string>& arguments,
                      const Surroundings& surroundings = {});

} // namespace refdoc_tests
