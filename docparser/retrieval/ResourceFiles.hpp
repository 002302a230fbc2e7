#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <optional>
#include <string>

namespace reference::docparser {

/// Reads one product's full resources from one folder: the English file P.json, overlaid with the
/// file P_L.json of the current documentation language L unless that is "en".
///
/// The overlay works section by section. If both files have a section, the language file's items
/// replace the English items of the same href, the other English items stay, and the header is the
/// language file's. A section that only one file has is used as it is.
/// \param product  used in the file names as it is
/// \param folder   joined with the file names by one separator
/// \returns        empty if neither file exists and is valid; an invalid file never hides the
///                 other one
/// \throws whatever the language service throws; std::bad_alloc
std::optional<ResourceMap<property::RefItem>> getResourceDataAtRoot(const std::u16string& product,
                                                                    const std::u16string& folder,
                                                                    RetrievalObserver& observer);

} // namespace reference::docparser
