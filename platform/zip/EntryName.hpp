#pragma once

#include <string_view>

namespace platform::zip {

/// Returns what follows the last separator of an entry's name: "P.json" for "en/P.json", empty for
/// a folder.
///
/// Both '/' and '\' are separators. The format allows only '/', but some packages made on Windows
/// use '\', and no file packed there can have a '\' in its name.
std::u16string_view baseNameOf(std::u16string_view entryName) noexcept;

/// Returns whether the entry is a folder: its name ends with a separator.
bool isFolderName(std::u16string_view entryName) noexcept;

/// Returns whether the entry describes the package and is not part of its content:
/// "[Content_Types].xml" at the root, or a name that ends with ".rels" in a folder "_rels" at any
/// level.
bool isPackagingMetadata(std::u16string_view entryName) noexcept;

} // namespace platform::zip
