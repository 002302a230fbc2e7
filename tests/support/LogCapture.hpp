#pragma once

#include "platform/log/DiagnosticLogger.hpp"

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace docparser_tests {

/// One record of a diagnostic channel, as it came to the sinks.
struct LogLine {
    std::string channel; ///< empty when the record has no such attribute
    int severity = 0;    ///< 0 when the record has no such attribute
    std::string message;

    bool operator==(const LogLine&) const = default;

    /// What GoogleTest shows of a line.
    friend void PrintTo(const LogLine& line, std::ostream* out) {
        *out << line.channel << ' ' << line.severity << " \"" << line.message << '"';
    }
};

/// Keeps every record that reaches the core of Boost.Log during its life, whatever the channel.
///
/// It sets the severity mask of the process and adds a sink of its own to the core; the destructor
/// removes the sink and sets the mask that was there before. Any thread may log meanwhile.
class LogCapture {
public:
    /// \param mask  the severities that loggers let through; all of them by default
    explicit LogCapture(std::uint32_t mask = 0x7fff);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The records so far, in the order in which they came.
    std::vector<LogLine> lines() const;

    /// The texts of the records so far.
    std::vector<std::string> messages() const;

private:
    struct Sink; // keeps the many headers of Boost.Log out of the tests

    std::uint32_t maskBefore_;
    std::unique_ptr<Sink> sink_;
};

} // namespace docparser_tests
