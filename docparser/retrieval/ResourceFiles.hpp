#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"

#include <optional>
#include <string>

namespace reference::docparser {

/// Reads one product's full resources from one folder: the English file P.json, overlaid with the
/// file P_L.json of the current documentation language L when that is not "en".
///
/// The overlay goes by section: where both files have one, its items of the language file replace
/// the English items of the same href, the other English items stay, and the header is the language
/// file's; a section that one file alone has is taken as it is.
/// \param product  used in the file names as it stands
/// \param folder   joined with the file names by one separator
/// \returns        empty when neither file is there and well-formed; a bad file never hides the
///                 other one
/// \throws whatever the language service throws; std::bad_alloc
std::optional<ResourceMap<property::RefItem>> getResourceDataAtRoot(const std::u16string& product,
                                                                    const std::u16string& folder);

} // namespace reference::docparser
