#pragma once

#include "platform/Export.hpp"

#include <boost/log/core/record.hpp>

#include <cstdint>
#include <memory>
#include <string>

namespace foundation::log {

/// Severity of records that trace what a component does, such as the files that it reads.
inline constexpr int kSeverityTrace = 16;
/// Severity of records about problems that a developer or administrator should look into.
inline constexpr int kSeverityProblem = 512;

/// Enables the severities whose bits are set in `mask`, for every logger of the process.
///
/// The mask is 0 at the start, because Boost.Log writes to standard output in a program that has
/// not set up any sinks. Takes no lock; any thread may call at any time.
DOCPARSER_PLATFORM_EXPORT void setSeverityMask(std::uint32_t mask) noexcept;

/// Returns the mask that was set last; 0 at the start.
DOCPARSER_PLATFORM_EXPORT std::uint32_t severityMask() noexcept;

/// Opens the records of one channel in the core of Boost.Log.
///
/// Each record has the attributes `Channel` (std::string) and `Severity` (int), besides those that
/// the host application has added to the core. Any thread may log.
template <class CharT>
class basic_diagnostic_logger;

/// The logger of channels that are named in UTF-8, the only specialisation.
template <>
class DOCPARSER_PLATFORM_EXPORT basic_diagnostic_logger<char> {
public:
    /// \param channel  name of the channel, UTF-8
    explicit basic_diagnostic_logger(std::string channel);
    ~basic_diagnostic_logger();
    basic_diagnostic_logger(const basic_diagnostic_logger&) = delete;
    basic_diagnostic_logger& operator=(const basic_diagnostic_logger&) = delete;

    /// Returns the enabled severities. The caller tests them before it opens a record: mask,
    /// severity and 0x7fff must have a bit in common. A plain read without a lock.
    std::uint32_t mask() const noexcept;

    /// Opens a record for the caller to fill and to push to the core.
    ///
    /// Holds the logger's own lock while it sets the severity of the calling thread and calls the
    /// core. The caller must link Boost.Log.
    /// \returns  a record that converts to false if the core rejects it
    /// \throws   whatever the core or one of its filters throws
    boost::log::record open_record(int severity);

private:
    class Source;
    std::unique_ptr<Source> source_;
};

/// The usual name of the logger.
using diagnostic_logger = basic_diagnostic_logger<char>;

} // namespace foundation::log
