#include "tools/refdoc/PageSetup.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

namespace refdoc {

OutputDevice askStandardOutput() {
    OutputDevice device;
    device.isTerminal = isatty(STDOUT_FILENO) == 1;
    winsize size{};
    if (device.isTerminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0)
        device.columns = size.ws_col;
    return device;
}

} // namespace refdoc
