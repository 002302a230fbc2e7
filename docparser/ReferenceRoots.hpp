#pragma once

#include "docparser/Export.hpp"

#include <string>

namespace reference::docparser {

/// The folders in which resource files are looked up: a reference root and two folders below it.
/// Shared and const, so that a snapshot is not affected when the settings change.
struct DOCPARSER_EXPORT ReferenceRoots {
    /// Derives the folders by plain concatenation with a separator before each part, even if the
    /// root ends with one. Nothing is normalised, and nothing need exist.
    explicit ReferenceRoots(std::u16string referenceRoot);

    std::u16string root;               ///< as it was given
    std::u16string lookupFolder;       ///< root, "docCatalog", "referenceapi_lookup"
    std::u16string referenceApiFolder; ///< root, "docCatalog", "referenceapi"
};

} // namespace reference::docparser
