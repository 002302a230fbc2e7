#pragma once

namespace refdoc {

/// Lets the library's diagnostic records through and writes each as one line on standard error:
/// its severity in brackets, a space, its text.
void logToStandardError();

} // namespace refdoc
