#pragma once

#include <cstddef>
#ifdef _WIN32
#include <windows.h>
#else
#include <filesystem>
#include <iterator>
#endif

namespace docparser_tests {

/// Returns the number of open descriptors of this process, on Windows of open handles. The system
/// may close some of its own at any time.
inline std::size_t openDescriptors() {
#ifdef _WIN32
    DWORD handles = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &handles);
    return handles;
#else
    // Includes the descriptor of the iterator itself, in every call.
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
#endif
}

} // namespace docparser_tests
