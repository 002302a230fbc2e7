#pragma once

#include "docparser/Export.hpp"

#include <string>

namespace reference::docparser {

/// Where resource files are looked for: a reference root and the two folders below it. Handed out
/// as shared and const, so a snapshot stays as it is when the settings change.
struct DOCPARSER_EXPORT ReferenceRoots {
    /// Derives the folders by plain concatenation, each part after a separator, also where the root
    /// ends with one; nothing is normalised and nothing need exist.
    explicit ReferenceRoots(std::u16string referenceRoot);

    std::u16string root;               ///< as it was given
    std::u16string lookupFolder;       ///< root, "docCatalog", "referenceapi_lookup"
    std::u16string referenceApiFolder; ///< root, "docCatalog", "referenceapi"
};

} // namespace reference::docparser
