#pragma once

#include "platform/path/Path.hpp"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace reference::docparser {

// Constants for file and folder names. They are constant expressions, so they can be used before
// any static initialiser runs.

inline constexpr char16_t kPathSeparator = fl::filesystem::PATHNAME_SEPARATOR;

inline constexpr std::u16string_view kJsonExtension = u"json";
inline constexpr std::u16string_view kZipExtension = u"zip";
inline constexpr std::u16string_view kDotJsonExtension = u".json";
inline constexpr std::u16string_view kDotZipExtension = u".zip";

inline constexpr std::u16string_view kEnglish = u"en";
inline constexpr char16_t kLocaleSeparatorUnit = u'_';

// The folders below an install folder, and below a reference root, one level each.
inline constexpr std::array<std::u16string_view, 1> kReferenceRootLevels = {u"help"};
inline constexpr std::array<std::u16string_view, 2> kReferenceApiLevels = {u"docCatalog",
                                                                           u"referenceapi"};
inline constexpr std::array<std::u16string_view, 2> kLookupLevels = {u"docCatalog",
                                                                     u"referenceapi_lookup"};
// The same below a support-package root.
inline constexpr std::array<std::u16string_view, 3> kSupportPackageLevels = {u"help", u"docCatalog",
                                                                             u"referenceapi"};

/// Appends folders to a path by plain concatenation, a separator before each.
inline std::u16string folderBelow(std::u16string path,
                                  std::span<const std::u16string_view> levels) {
    for (const std::u16string_view level : levels)
        path.append(1, kPathSeparator).append(level);
    return path;
}

} // namespace reference::docparser
