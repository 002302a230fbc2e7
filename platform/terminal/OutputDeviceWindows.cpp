#include "platform/terminal/OutputDevice.hpp"

#include <windows.h>

namespace platform {

namespace {

OutputDevice ask(DWORD stream) noexcept {
    OutputDevice device;
    const HANDLE handle = ::GetStdHandle(stream);
    DWORD mode = 0;
    device.isTerminal = ::GetConsoleMode(handle, &mode) != 0;
    CONSOLE_SCREEN_BUFFER_INFO screen = {};
    if (device.isTerminal && ::GetConsoleScreenBufferInfo(handle, &screen)) {
        // The window shows a part of a buffer that may be larger.
        device.columns = static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1);
        device.rows = static_cast<std::size_t>(screen.srWindow.Bottom - screen.srWindow.Top + 1);
    }
    return device;
}

} // namespace

OutputDevice askStandardOutput() noexcept {
    return ask(STD_OUTPUT_HANDLE);
}

OutputDevice askStandardError() noexcept {
    return ask(STD_ERROR_HANDLE);
}

} // namespace platform
