#pragma once

#include "docparser/discovery/ProductLists.hpp"
#include "docparser/shared/LoadAccount.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace reference::docparser {

/// Whether a file or entry of this stem is to be read, and as what.
enum class ProductLocale {
    English, ///< no suffix of the list: read in any language
    Current, ///< translated into the current language
    Other    ///< translated into another one: left out
};

/// Sorts a stem by its end.
/// \param localeSuffixes       what marks a translation; an empty one marks every stem
/// \param currentLocaleSuffix  the mark of the translations to read
ProductLocale classifyStem(std::u16string_view stem,
                           const std::vector<std::u16string>& localeSuffixes,
                           std::u16string_view currentLocaleSuffix) noexcept;

/// The product files that lie directly in a folder; see DocResourceParser::getAllProducts().
/// \param account  where to tell of the files that are left out; null: nobody asks
ProductLists findProducts(const std::u16string& root,
                          const std::vector<std::u16string>& localeSuffixes,
                          const std::u16string& currentLocaleSuffix,
                          LoadAccount* account = nullptr);

} // namespace reference::docparser
