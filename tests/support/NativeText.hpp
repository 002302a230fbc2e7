#pragma once

#include "platform/system/NativePath.hpp"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace docparser_tests {

/// The text with the separator of this system in place of each '/': what the library joins.
inline std::u16string native(std::u16string text) {
    std::ranges::replace(text, u'/', platform::kPathSeparator);
    return text;
}

inline std::string native(std::string text) {
    std::ranges::replace(text, '/', static_cast<char>(platform::kPathSeparator));
    return text;
}

/// The text with '/' in place of each separator of this system.
inline std::u16string portable(std::u16string text) {
    std::ranges::replace(text, platform::kPathSeparator, u'/');
    return text;
}
inline std::string portable(std::string text) {
    std::ranges::replace(text, static_cast<char>(platform::kPathSeparator), '/');
    return text;
}

/// The path of a UTF-8 text; on POSIX the bytes may be any.
inline std::filesystem::path pathOf(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}

/// The path as UTF-8 text.
inline std::string textOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace docparser_tests
