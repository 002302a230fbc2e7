#pragma once

#include "platform/log/DiagnosticLogger.hpp"

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace docparser_tests {

/// One record of a diagnostic channel, as the sinks receive it.
struct LogLine {
    std::string channel; ///< empty if the record has no such attribute
    int severity = 0;    ///< 0 if the record has no such attribute
    std::string message;

    bool operator==(const LogLine&) const = default;

    friend void PrintTo(const LogLine& line, std::ostream* out) {
        *out << line.channel << ' ' << line.severity << " \"" << line.message << '"';
    }
};

/// Records everything that reaches the core of Boost.Log during its life, from every channel.
///
/// Sets the severity mask of the process and adds a sink to the core. The destructor removes the
/// sink and restores the mask. Thread-safe.
class LogCapture {
public:
    /// \param mask  the severities that are logged; all of them by default
    explicit LogCapture(std::uint32_t mask = 0x7fff);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The records so far, oldest first.
    std::vector<LogLine> lines() const;

    /// The messages of the records so far, oldest first.
    std::vector<std::string> messages() const;

private:
    struct Sink; // keeps the many headers of Boost.Log out of the tests

    std::uint32_t maskBefore_;
    std::unique_ptr<Sink> sink_;
};

} // namespace docparser_tests
