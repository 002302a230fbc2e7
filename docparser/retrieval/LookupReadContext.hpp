#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "docparser/retrieval/ParsingResults.hpp"
#include "docparser/retrieval/ResourceText.hpp"

#include <functional>
#include <string>
#include <vector>

namespace reference::docparser {

using LookupMap = ResourceMap<property::RefItemLookup>;
using LookupResults = ParsingResults<LookupMap>;

/// Parses the text of a lookup file of the product named, and lists its sections if `list` is not
/// null.
using ParseLookupText =
    std::function<LookupMap(std::string text, const std::u16string& product, SectionList* list)>;

/// Whether what a section is keyed by counts as installed.
using IsInstalled = std::function<bool(const std::u16string& key)>;

class LookupAccount;

/// What all readers of one retrieval share.
struct LookupReadContext {
    ParseLookupText parseLookupText;
    IsInstalled isInstalled;
    std::vector<std::u16string> supportedLocales; ///< the suffixes that mark translations
    std::u16string localeSuffix;                  ///< "_" and the current language, "en" included
    LookupAccount* account = nullptr;             ///< null: nobody asks what becomes of the files
};

} // namespace reference::docparser
