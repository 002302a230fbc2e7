#pragma once

#include "docparser/shared/Fates.hpp"
#include "platform/path/Path.hpp"

#include <optional>
#include <string>
#include <vector>

namespace reference::docparser {

/// What the name of a file or package entry says about it.
struct ProductSelection {
    std::optional<Fate> skipped{};   ///< why the file is not read; empty if it is
    std::u16string stem{};           ///< the product's name; empty for other extensions
    bool isNonEnglishLocale = false; ///< whether the file is a translation
};

/// Decides whether a file is a product file to read: its extension is "json" or "zip", and it is
/// not a translation into a language other than the current one.
/// \param name                 the file name in native form
/// \param localeSuffixes       the suffixes that mark a translation; an empty one marks every stem
/// \param currentLocaleSuffix  the suffix of the translations to read
/// \param isTranslation        whether the file is a translation; if absent, the name decides
ProductSelection selectProduct(const fl::filesystem::path& name,
                               const std::vector<std::u16string>& localeSuffixes,
                               const std::u16string& currentLocaleSuffix,
                               std::optional<bool> isTranslation = {});

/// Returns whether a file of this name counts as a product file: its extension is exactly "json" or
/// "zip", in lower case. Only the name is examined.
bool isValidFilename(const fl::filesystem::path& path);

} // namespace reference::docparser
