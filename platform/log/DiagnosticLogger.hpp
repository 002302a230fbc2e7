#pragma once

#include "platform/Export.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace foundation::log {

/// Severity of the lines that follow what a component does, such as the files that it reads.
inline constexpr int kSeverityTrace = 16;
/// Severity of trouble that somebody should look into.
inline constexpr int kSeverityProblem = 512;

/// Sets which severities every logger of the process lets through: the bits of `mask`.
///
/// It starts at 0, so that a program without log sinks, where Boost.Log would write to standard
/// output, stays silent until its host asks. Takes no lock; any thread may call at any time.
DOCPARSER_PLATFORM_EXPORT void setSeverityMask(std::uint32_t mask) noexcept;

/// The mask that setSeverityMask() set last, 0 at the start.
DOCPARSER_PLATFORM_EXPORT std::uint32_t severityMask() noexcept;

/// Writes the lines of one channel to the core of Boost.Log.
///
/// Each record carries the attributes `Channel` (std::string) and `Severity` (int), besides what
/// the host has added to the core. A line that the mask or the core turns down is never formed.
/// Any thread may log; opening a record is serialised by the logger's own lock, which is released
/// before the text is formed and the record is pushed.
template <class CharT>
class basic_diagnostic_logger;

/// The logger of lines in UTF-8, the one kind there is.
template <>
class DOCPARSER_PLATFORM_EXPORT basic_diagnostic_logger<char> {
public:
    /// \param channel  name of the channel, UTF-8
    explicit basic_diagnostic_logger(std::string channel);
    ~basic_diagnostic_logger();
    basic_diagnostic_logger(const basic_diagnostic_logger&) = delete;
    basic_diagnostic_logger& operator=(const basic_diagnostic_logger&) = delete;

    /// Whether the mask lets a line of this severity through: mask, severity and 0x7fff share a
    /// bit. A plain read, without a lock.
    bool isEnabled(int severity) const noexcept;

    /// Writes `prefix` followed by `subject` as one line, when isEnabled() says so and a sink of
    /// the core wants it.
    /// \param prefix   fixed text, UTF-8
    /// \param subject  what the line is about, written as UTF-8; unpaired surrogates become U+FFFD
    /// \throws whatever the core or a sink throws for a line that is enabled
    void write(int severity, std::string_view prefix, std::u16string_view subject);

private:
    class Source;
    std::unique_ptr<Source> source_;
};

/// What components log with.
using diagnostic_logger = basic_diagnostic_logger<char>;

} // namespace foundation::log
