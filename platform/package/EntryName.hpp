#pragma once

#include <string_view>

namespace opc::detail {

/// What follows the last folder of an entry's name: "P.json" of "en/P.json"; empty for a folder.
///
/// '\' parts folders as '/' does. Only '/' should, but packages made on Windows are met with '\',
/// and a file that was packed there cannot have it in its name.
std::u16string_view baseNameOf(std::u16string_view entryName) noexcept;

/// Whether the entry is a folder: its name ends with a separator.
bool isFolderName(std::u16string_view entryName) noexcept;

/// Whether the entry describes the package rather than belongs to its content:
/// "[Content_Types].xml" at the root, and what ends with ".rels" in a folder "_rels", wherever that
/// lies.
bool isPackagingMetadata(std::u16string_view entryName) noexcept;

} // namespace opc::detail
