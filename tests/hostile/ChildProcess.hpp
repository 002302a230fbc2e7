#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace docparser_tests {

/// What a child process may use.
struct ChildLimits {
    /// Address space, in bytes. Not enforced in a build with sanitizers, which reserve far more.
    std::uint64_t memoryBytes = std::uint64_t{2} << 30;
    /// Time for the step, and for what follows each call of Progress::at().
    unsigned seconds = 10;
};

/// How a step in a child process says where it is.
class Progress {
public:
    explicit Progress(char* place, unsigned seconds) : place_(place), seconds_(seconds) {}

    /// Names what is done next and starts its time.
    void at(std::string_view what);

private:
    char* place_;
    unsigned seconds_;
};

/// Runs a step in a child process and fails the test when the step fails an expectation, throws,
/// ends the process or runs out of time; the message has what Progress::at() named last.
///
/// No other thread may run in the process that calls.
void runInChild(const ChildLimits& limits, const std::function<void(Progress&)>& step);

/// Whether this build has sanitizers, which take many times the memory and the time.
#ifdef DOCPARSER_SANITIZED
inline constexpr bool kIsSanitized = true;
#else
inline constexpr bool kIsSanitized = false;
#endif

} // namespace docparser_tests
