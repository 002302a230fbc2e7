#include "platform/terminal/OutputDevice.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

namespace platform {

OutputDevice askStandardOutput() noexcept {
    OutputDevice device;
    device.isTerminal = ::isatty(STDOUT_FILENO) == 1;
    winsize size{};
    if (device.isTerminal && ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {
        device.columns = size.ws_col;
        device.rows = size.ws_row;
    }
    return device;
}

} // namespace platform
