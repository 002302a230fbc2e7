#pragma once

#include <boost/log/attributes/attribute_set.hpp>
#include <boost/log/core/record.hpp>

#include <cstdint>
#include <mutex>
#include <string>

namespace foundation::log {

inline constexpr int kSeverityTrace = 16;
inline constexpr int kSeverityProblem = 512;

void setSeverityMask(std::uint32_t mask) noexcept;
std::uint32_t severityMask() noexcept;

template <class CharT>
class basic_diagnostic_logger;

/// Opens the records of one channel.
template <>
class basic_diagnostic_logger<char> {
public:
    explicit basic_diagnostic_logger(const std::string& channel);

    std::uint32_t mask() const noexcept { return severityMask(); }
    boost::log::record open_record(int severity);

private:
    std::mutex mutex_; // guards attributes_
    boost::log::attribute_set attributes_;
};

} // namespace foundation::log
