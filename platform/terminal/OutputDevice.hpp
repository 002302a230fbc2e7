#pragma once

#include "platform/SeamExport.hpp"

#include <cstddef>

namespace platform {

/// What a stream of the process is connected to.
struct OutputDevice {
    bool isTerminal = false; ///< false for files and pipes, and when it is closed
    std::size_t columns = 0; ///< width of the terminal; 0 when there is none or it does not tell
    std::size_t rows = 0;    ///< its height; 0 likewise
};

/// Asks the system what standard output is connected to.
DOCPARSER_SEAM_EXPORT OutputDevice askStandardOutput() noexcept;

/// Asks the system what standard error is connected to.
DOCPARSER_SEAM_EXPORT OutputDevice askStandardError() noexcept;

} // namespace platform
