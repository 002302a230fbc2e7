#include "platform/terminal/Browser.hpp"

#include <windows.h>
#include <shellapi.h>

namespace platform {

bool openInBrowser(const std::string& url) {
    constexpr INT_PTR kLargestError = 32;
    const HINSTANCE result =
        ::ShellExecuteA(nullptr, "open", url.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > kLargestError;
}

} // namespace platform
