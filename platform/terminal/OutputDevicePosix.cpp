#include "platform/terminal/OutputDevice.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

namespace platform {

namespace {

OutputDevice ask(int stream) noexcept {
    OutputDevice device;
    device.isTerminal = ::isatty(stream) == 1;
    winsize size{};
    if (device.isTerminal && ::ioctl(stream, TIOCGWINSZ, &size) == 0) {
        device.columns = size.ws_col;
        device.rows = size.ws_row;
    }
    return device;
}

} // namespace

OutputDevice askStandardOutput() noexcept {
    return ask(STDOUT_FILENO);
}

OutputDevice askStandardError() noexcept {
    return ask(STDERR_FILENO);
}

} // namespace platform
