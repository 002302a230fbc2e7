#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "docparser/retrieval/ParsingResults.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <functional>
#include <string>

namespace reference::docparser {

using LookupMap = ResourceMap<property::RefItemLookup>;
using LookupResults = ParsingResults<LookupMap>;

/// Parses the JSON of a lookup file of the named product.
using ParseLookupText = std::function<LookupMap(std::string text, const std::u16string& product,
                                                RetrievalObserver& observer)>;

/// Returns whether the product of a section key is installed.
using IsInstalled = std::function<bool(const std::u16string& key)>;

/// Reads the lookup files of all products in a folder: the packages first, then the plain files,
/// each in the order of the folder.
///
/// A section goes into the map that `isInstalled` chooses for its key. If the map has a section
/// with the key, the two are merged as mergeLookupItems() describes; a translation is first swapped
/// with the existing section, header and items, so that it takes precedence. A product that cannot
/// be read or parsed is skipped; if `isInstalled` throws, the remaining sections of the product are
/// skipped. Nothing is logged for either.
/// \param lookupFolder  if empty, the result is empty and no host service is asked
/// \throws whatever the language service throws
LookupResults collectLookupFiles(const std::u16string& lookupFolder,
                                 ParseLookupText parseLookupText, IsInstalled isInstalled,
                                 RetrievalObserver& observer);

} // namespace reference::docparser
