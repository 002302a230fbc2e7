#pragma once

#include "docparser/retrieval/LookupReadContext.hpp"

#include <string>

namespace reference::docparser {

/// Reads the lookup files of a folder, packages first, and merges them.
/// \param lookupFolder  empty: no lookups
/// \throws whatever the language service throws; a product that can't be read is left out
LookupResults collectLookupFiles(const std::u16string& lookupFolder,
                                 ParseLookupText parseLookupText, IsInstalled isInstalled);

} // namespace reference::docparser
