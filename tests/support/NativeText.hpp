#pragma once

#include "platform/system/NativePath.hpp"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace docparser_tests {

/// Replaces each '/' with the native separator, as the library joins paths.
inline std::u16string native(std::u16string text) {
    std::ranges::replace(text, u'/', platform::kPathSeparator);
    return text;
}

inline std::string native(std::string text) {
    std::ranges::replace(text, '/', static_cast<char>(platform::kPathSeparator));
    return text;
}

/// Replaces each native separator with '/'.
inline std::u16string portable(std::u16string text) {
    std::ranges::replace(text, platform::kPathSeparator, u'/');
    return text;
}
inline std::string portable(std::string text) {
    std::ranges::replace(text, static_cast<char>(platform::kPathSeparator), '/');
    return text;
}

/// Converts UTF-8 to a path. On POSIX any bytes are allowed.
inline std::filesystem::path pathOf(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}

/// Converts a path to UTF-8.
inline std::string textOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace docparser_tests
