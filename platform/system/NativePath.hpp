#pragma once

#include "platform/SeamExport.hpp"

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

/// Separates the components of a path on this system: '/', or '\' on Windows.
inline constexpr auto kPathSeparator =
    static_cast<char16_t>(std::filesystem::path::preferred_separator);

/// Returns whether this system reads a character as a separator: '/', and '\' on Windows.
constexpr bool isPathSeparator(char16_t unit) noexcept {
    return unit == u'/' || unit == kPathSeparator;
}

/// Appends a component to a folder, after one separator unless the folder ends with one. Both are
/// taken as they are: a component that looks absolute does not replace the folder.
DOCPARSER_SEAM_EXPORT std::u16string joinPath(std::u16string_view folder,
                                              std::u16string_view component);

/// A path as the system's calls take it: bytes in UTF-8, or UTF-16 on Windows.
///
/// A plain string, because a std::filesystem::path splits itself into components on each
/// construction.
using NativePath = std::filesystem::path::string_type;

/// Converts a path to the form that the system's calls take.
/// \throws std::system_error  the path contains NUL (errc::invalid_argument), which would make the
///                            system use another path, or an unpaired surrogate where paths are
///                            bytes (errc::illegal_byte_sequence)
DOCPARSER_SEAM_EXPORT NativePath toNativePath(std::u16string_view path);

/// Converts a path of the system to UTF-16; ill-formed parts become U+FFFD.
DOCPARSER_SEAM_EXPORT std::u16string fromNativePath(const NativePath& path);

} // namespace platform
