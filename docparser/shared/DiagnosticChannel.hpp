#pragma once

#include "platform/log/DiagnosticLogger.hpp"

#include <string>
#include <string_view>

namespace reference::docparser {

/// The library's one diagnostic channel, "referenceApi::docparser".
///
/// It is built when the library is loaded, or by the first operation should that come earlier, and
/// lives until unload. Every message of the library goes through it; see docs for the texts.
foundation::log::diagnostic_logger& docParserLog();

/// Writes `prefix` followed by `subject` as one line, if the severity is enabled.
void writeDiagnostic(int severity, std::string_view prefix, const std::u16string& subject);

} // namespace reference::docparser
