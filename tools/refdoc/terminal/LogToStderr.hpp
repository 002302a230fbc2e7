#pragma once

namespace refdoc {

/// Enables the library's diagnostic records and writes each to standard error on one line: its
/// severity in brackets, a space, its text.
void logToStandardError();

} // namespace refdoc
