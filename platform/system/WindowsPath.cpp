#include "platform/system/WindowsPath.hpp"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform {

namespace {

// The devices that Windows finds in every folder. The serial and parallel ports have a digit after
// their names, for which the superscripts one, two and three count as well.
constexpr std::array<std::wstring_view, 6> kDevices = {L"con", L"prn",    L"aux",
                                                       L"nul", L"conin$", L"conout$"};
constexpr std::array<std::wstring_view, 2> kPorts = {L"com", L"lpt"};
constexpr std::wstring_view kPortDigits = L"0123456789\u00b9\u00b2\u00b3";

constexpr wchar_t toLower(wchar_t unit) noexcept {
    return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit - L'A' + L'a') : unit;
}

bool equalsIgnoringCase(std::wstring_view text, std::wstring_view lowerCase) noexcept {
    return std::ranges::equal(text, lowerCase, {}, toLower);
}

constexpr bool isSeparator(wchar_t unit) noexcept {
    return unit == L'/' || unit == L'\\';
}

// Removes the component before the next separator, and that separator, from the path and returns
// the component.
std::wstring_view takeComponent(std::wstring_view& path) noexcept {
    const auto separator = std::ranges::find_if(path, isSeparator);
    const auto length = static_cast<std::size_t>(separator - path.begin());
    const std::wstring_view component = path.substr(0, length);
    path.remove_prefix(std::min(length + 1, path.size()));
    return component;
}

// Windows compares the name up to its first dot and ignores spaces before the dot.
bool isDeviceName(std::wstring_view name) noexcept {
    name = name.substr(0, name.find(L'.'));
    name = name.substr(0, name.find_last_not_of(L' ') + 1);
    const auto equalsName = [&](std::wstring_view device) {
        return equalsIgnoringCase(name, device);
    };
    if (std::ranges::any_of(kDevices, equalsName))
        return true;
    if (name.empty() || kPortDigits.find(name.back()) == std::wstring_view::npos)
        return false;
    name.remove_suffix(1);
    return std::ranges::any_of(kPorts, equalsName);
}

bool startsWithTwoSeparators(std::wstring_view path) noexcept {
    return path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]);
}

// Removes a drive or the names of a server and share from a path that begins with two separators.
// Returns false if the path does not lead to a disk.
bool takeServer(std::wstring_view& path) noexcept {
    path.remove_prefix(2);
    std::wstring_view server = takeComponent(path);
    if (server == L".")
        return false;
    if (server == L"?") {
        const std::wstring_view drive = takeComponent(path);
        if (drive.size() == 2 && drive[1] == L':')
            return true;
        if (!equalsIgnoringCase(drive, L"unc"))
            return false;
        server = takeComponent(path);
    }
    const std::wstring_view share = takeComponent(path);
    return !equalsIgnoringCase(share, L"pipe") && !equalsIgnoringCase(share, L"mailslot");
}

// The limit of a folder's path, which leaves room for a name of eight characters with an extension.
constexpr std::size_t kLongestPath = MAX_PATH - 12;

bool isDrivePath(std::wstring_view path) noexcept {
    return path.size() >= 3 && path[1] == L':' && path[2] == L'\\';
}

// Returns the absolute form of a path; empty if Windows does not provide it.
std::wstring absolutePath(const std::wstring& path) {
    std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const auto capacity = static_cast<DWORD>(full.size());
    const DWORD length = ::GetFullPathNameW(path.c_str(), capacity, full.data(), nullptr);
    full.resize(length < capacity ? length : 0);
    return full;
}

} // namespace

bool isDeviceOrStream(std::wstring_view path) noexcept {
    if (path.find(L'\0') != std::wstring_view::npos)
        return true;
    if (startsWithTwoSeparators(path)) {
        if (!takeServer(path))
            return true;
    } else if (path.size() >= 2 && path[1] == L':') {
        path.remove_prefix(2);
    }
    if (path.find(L':') != std::wstring_view::npos)
        return true;
    while (!path.empty()) {
        if (isDeviceName(takeComponent(path)))
            return true;
    }
    return false;
}

std::wstring withLongPathPrefix(std::wstring path) {
    const bool isServerPath = startsWithTwoSeparators(path);
    if (path.size() < kLongestPath && (isServerPath || isDrivePath(path)))
        return path;
    if (path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)"))
        return path;
    const std::wstring full = absolutePath(path);
    if (full.size() < kLongestPath)
        return path;
    return isServerPath ? LR"(\\?\UNC\)" + full.substr(2) : LR"(\\?\)" + full;
}

} // namespace platform
