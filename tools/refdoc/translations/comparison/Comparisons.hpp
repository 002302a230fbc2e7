#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/translations/comparison/Report.hpp"

#include <map>
#include <set>

namespace refdoc::translations {

/// Compares the full resources of a product with those of its translation.
///
/// Texts are purposes, descriptions, titles and the text in place of a picture. A translated item
/// has at least one text that its English item does not have; if the English item has no text,
/// there is nothing to translate. An item is out of step if the inputs, outputs, syntaxes,
/// properties or parameters have other names or another order, or the syntaxes another wording;
/// texts, allowed values and defaults are not compared. The fields have the names that
/// `refdoc show --json` prints.
///
/// \param english      the English file alone
/// \param translation  the language file alone
Comparison
compareItems(const reference::docparser::ResourceMap<reference::property::RefItem>& english,
             const reference::docparser::ResourceMap<reference::property::RefItem>& translation);

/// The lookup records of one product in one language.
using LookupRecords = std::map<Key, const reference::property::RefItemLookup*>;

/// Compares the lookup records of a product with those of its translation.
///
/// A translated record has another purpose than the English one, or both have none. A record is out
/// of step if its types or its deprecation differ.
/// \param dropped  the records of language files that the merge drops; what English has of them
///                 counts neither as missing nor as translated
Comparison compareLookups(const LookupRecords& english, const LookupRecords& translation,
                          const std::set<Key>& dropped);

} // namespace refdoc::translations
