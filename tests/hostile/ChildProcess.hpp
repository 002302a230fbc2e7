#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace docparser_tests {

/// The resources of a child process.
struct ChildLimits {
    /// Size of the address space. Not enforced in a build with sanitizers, which reserve far more.
    std::uint64_t memoryBytes = std::uint64_t{2} << 30;
    /// Time limit. Each call of Progress::at() starts it again.
    unsigned seconds = 10;
};

/// Reports the progress of a step from a child process to its parent.
class Progress {
public:
    explicit Progress(char* buffer, unsigned seconds) : buffer_(buffer), seconds_(seconds) {}

    /// Names the next part of the step and restarts the time limit.
    void at(std::string_view what);

private:
    char* buffer_;
    unsigned seconds_;
};

/// Runs a step in a child process. Fails the test if the step fails an expectation, throws, ends
/// the process or exceeds the time limit; the message contains the last name passed to
/// Progress::at().
///
/// The calling process must have no other threads.
void runInChild(const ChildLimits& limits, const std::function<void(Progress&)>& step);

/// Whether this build has sanitizers, which need many times the memory and time.
#ifdef DOCPARSER_SANITIZED
inline constexpr bool kIsSanitized = true;
#else
inline constexpr bool kIsSanitized = false;
#endif

} // namespace docparser_tests
