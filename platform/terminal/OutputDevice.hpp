#pragma once

#include <cstddef>

namespace platform {

/// The device that an output stream of the process is connected to.
struct OutputDevice {
    bool isTerminal = false; ///< false for files and pipes, and if the stream is closed
    std::size_t columns = 0; ///< width of the terminal; 0 if unknown or not a terminal
    std::size_t rows = 0;    ///< height of the terminal; 0 if unknown or not a terminal
};

/// Returns the device of standard output.
OutputDevice askStandardOutput() noexcept;

/// Returns the device of standard error.
OutputDevice askStandardError() noexcept;

} // namespace platform
