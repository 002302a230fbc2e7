#pragma once

#include <cstddef>
#ifdef _WIN32
#include <windows.h>
#else
#include <filesystem>
#include <iterator>
#endif

namespace docparser_tests {

/// How many descriptors, or handles on Windows, this process has open. The system may close some of
/// its own at any time.
inline std::size_t openDescriptors() {
#ifdef _WIN32
    DWORD handles = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &handles);
    return handles;
#else
    // The walk itself has one open, each time.
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
#endif
}

} // namespace docparser_tests
