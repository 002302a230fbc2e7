// The diagnostic logger.

#include "platform/log/DiagnosticLogger.hpp"

#include <boost/log/attributes/constant.hpp>
#include <boost/log/core/core.hpp>

#include <atomic>

namespace foundation::log {

namespace {

std::atomic<std::uint32_t> currentMask = 0;

} // namespace

void setSeverityMask(std::uint32_t mask) noexcept {
    currentMask = mask;
}

std::uint32_t severityMask() noexcept {
    return currentMask;
}

basic_diagnostic_logger<char>::basic_diagnostic_logger(const std::string& channel) {
    attributes_["Channel"] = boost::log::attributes::constant<std::string>(channel);
}

boost::log::record basic_diagnostic_logger<char>::open_record(int severity) {
    const std::lock_guard lock(mutex_);
    attributes_["Severity"] = boost::log::attributes::constant<int>(severity);
    return boost::log::core::get()->open_record(attributes_);
}

} // namespace foundation::log
