#pragma once

#include <string>
#include <string_view>

namespace reference::docparser {

/// Severity of the messages that name each file before it is read.
inline constexpr int kTraceSeverity = 16;
/// Severity of the messages about problems.
inline constexpr int kProblemSeverity = 512;

/// Writes `prefix` followed by `subject` to the library's one diagnostic channel,
/// "referenceApi::docparser". Nothing is formatted if the severity is disabled or the logging core
/// rejects the record. Any thread may call this function, even before static initialisers have run.
/// \param prefix   ASCII
/// \param subject  written as UTF-8
/// \throws whatever the logging core or a sink throws for an enabled severity
void writeDiagnostic(int severity, std::string_view prefix, const std::u16string& subject);

} // namespace reference::docparser
