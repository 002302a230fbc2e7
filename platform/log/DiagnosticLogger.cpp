#include "platform/log/DiagnosticLogger.hpp"

#include "platform/i18n/Converter.hpp"

#include <boost/log/keywords/channel.hpp>
#include <boost/log/keywords/severity.hpp>
#include <boost/log/sources/record_ostream.hpp>
#include <boost/log/sources/severity_channel_logger.hpp>

#include <atomic>
#include <utility>

namespace foundation::log {

namespace {

// Bits above these are never a severity.
constexpr std::uint32_t kSeverityBits = 0x7fff;

constinit std::atomic<std::uint32_t> currentMask{0};

} // namespace

void setSeverityMask(std::uint32_t mask) noexcept {
    currentMask.store(mask, std::memory_order_relaxed);
}

std::uint32_t severityMask() noexcept {
    return currentMask.load(std::memory_order_relaxed);
}

// The source opens each record under its own exclusive lock, after it has set the severity of the
// calling thread.
class basic_diagnostic_logger<char>::Source
    : public boost::log::sources::severity_channel_logger_mt<int, std::string> {
public:
    explicit Source(std::string channel)
        : severity_channel_logger_mt(boost::log::keywords::channel = std::move(channel)) {}
};

basic_diagnostic_logger<char>::basic_diagnostic_logger(std::string channel)
    : source_(std::make_unique<Source>(std::move(channel))) {}

basic_diagnostic_logger<char>::~basic_diagnostic_logger() = default;

bool basic_diagnostic_logger<char>::isEnabled(int severity) const noexcept {
    return (severityMask() & static_cast<std::uint32_t>(severity) & kSeverityBits) != 0;
}

void basic_diagnostic_logger<char>::write(int severity, std::string_view prefix,
                                          std::u16string_view subject) {
    if (!isEnabled(severity))
        return;
    boost::log::record record = source_->open_record(boost::log::keywords::severity = severity);
    if (!record)
        return;
    boost::log::record_ostream line(record);
    line << prefix << fl::i18n::to_string(subject);
    line.flush();
    source_->push_record(std::move(record));
}

} // namespace foundation::log
