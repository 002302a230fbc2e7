#pragma once

#include "platform/path/Path.hpp"

#include <string_view>

namespace reference::docparser {

// File-name and path constants. Being constant expressions they are ready before any static
// initialiser runs.

inline constexpr char16_t kPathSeparator = fl::filesystem::PATHNAME_SEPARATOR;

inline constexpr std::u16string_view kJsonExtension = u"json";
inline constexpr std::u16string_view kZipExtension = u"zip";
inline constexpr std::u16string_view kDotJsonExtension = u".json";
inline constexpr std::u16string_view kDotZipExtension = u".zip";

inline constexpr std::u16string_view kEnglish = u"en";
inline constexpr char16_t kLocaleSeparatorUnit = u'_';

inline constexpr std::u16string_view kHelpFolder = u"help";
inline constexpr std::u16string_view kDocCatalogFolder = u"docCatalog";
inline constexpr std::u16string_view kReferenceApiFolder = u"referenceapi";
inline constexpr std::u16string_view kLookupFolder = u"referenceapi_lookup";

} // namespace reference::docparser
