#pragma once

#include "docparser/DocResourceParser.hpp"

#include <set>
#include <string>
#include <vector>

namespace refdoc {

/// Returns the name of the product that a file belongs to: the file's name, without the suffix of
/// the current language if the file is a translation.
std::u16string productOf(const reference::docparser::ProductPathData& file,
                         const std::u16string& currentLanguage);

/// Returns the names of the products that have a full resource file in the reference root or in the
/// support-package folder, in English or in the current language. Sorted, each once.
/// \throws whatever the host services throw
std::vector<std::u16string> productNames();

/// Returns the names that productNames() returns in at least one of the languages.
/// \throws whatever the host services throw
std::set<std::u16string> productNames(const std::vector<std::u16string>& languages);

/// Returns whether a translation of a file may exist: something has its name, such as
/// "Orchard_de.json" beside "Orchard.json", or the folder cannot be read.
bool mayHaveTranslation(const std::u16string& file, const std::u16string& language);

} // namespace refdoc
