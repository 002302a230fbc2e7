#pragma once

#include "platform/log/DiagnosticLogger.hpp"

#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
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
    /// \param mask  the severities that loggers let through, all of them unless told otherwise
    explicit LogCapture(std::uint32_t mask = 0x7fff)
        : maskBefore_(foundation::log::severityMask()), sink_(boost::make_shared<Sink>()) {
        boost::log::core::get()->add_sink(sink_);
        foundation::log::setSeverityMask(mask);
    }
    ~LogCapture() {
        foundation::log::setSeverityMask(maskBefore_);
        boost::log::core::get()->remove_sink(sink_);
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The records so far, in the order in which they came.
    std::vector<LogLine> lines() const { return sink_->locked_backend()->lines; }

    /// The texts of the records so far.
    std::vector<std::string> messages() const {
        std::vector<std::string> texts;
        for (LogLine& line : lines())
            texts.push_back(std::move(line.message));
        return texts;
    }

private:
    struct Backend
        : boost::log::sinks::basic_sink_backend<boost::log::sinks::synchronized_feeding> {
        // Called by the frontend, under its lock.
        void consume(const boost::log::record_view& record) {
            lines.push_back(
                {boost::log::extract_or_default<std::string>("Channel", record, std::string()),
                 boost::log::extract_or_default<int>("Severity", record, 0),
                 boost::log::extract_or_default<std::string>("Message", record, std::string())});
        }

        std::vector<LogLine> lines;
    };
    using Sink = boost::log::sinks::synchronous_sink<Backend>;

    std::uint32_t maskBefore_;
    boost::shared_ptr<Sink> sink_;
};

} // namespace docparser_tests
