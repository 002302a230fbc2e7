#include "platform/log/DiagnosticLogger.hpp"

#include <boost/log/keywords/channel.hpp>
#include <boost/log/keywords/severity.hpp>
#include <boost/log/sources/severity_channel_logger.hpp>

#include <atomic>
#include <utility>

namespace foundation::log {

namespace {

constinit std::atomic<std::uint32_t> currentMask{0};

} // namespace

void setSeverityMask(std::uint32_t mask) noexcept {
    currentMask.store(mask, std::memory_order_relaxed);
}

std::uint32_t severityMask() noexcept {
    return currentMask.load(std::memory_order_relaxed);
}

// The source sets the severity of the calling thread and opens the record under its own exclusive
// lock.
class basic_diagnostic_logger<char>::Source
    : public boost::log::sources::severity_channel_logger_mt<int, std::string> {
public:
    explicit Source(std::string channel)
        : severity_channel_logger_mt(boost::log::keywords::channel = std::move(channel)) {}
};

basic_diagnostic_logger<char>::basic_diagnostic_logger(std::string channel)
    : source_(std::make_unique<Source>(std::move(channel))) {}

basic_diagnostic_logger<char>::~basic_diagnostic_logger() = default;

std::uint32_t basic_diagnostic_logger<char>::mask() const noexcept {
    return severityMask();
}

boost::log::record basic_diagnostic_logger<char>::open_record(int severity) {
    return source_->open_record(boost::log::keywords::severity = severity);
}

} // namespace foundation::log
