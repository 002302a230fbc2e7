#include "docparser/discovery/ProductSelection.hpp"

#include "docparser/shared/Constants.hpp"

#include <algorithm>

namespace reference::docparser {

ProductSelection selectProduct(const fl::filesystem::path& name,
                               const std::vector<std::u16string>& localeSuffixes,
                               const std::u16string& currentLocaleSuffix,
                               std::optional<bool> isTranslation) {
    ProductSelection selection;
    if (!isValidFilename(name)) {
        selection.skipped = Fate::SkippedName;
        return selection;
    }
    selection.stem = fl::filesystem::extract_stem(name);
    const auto endsStem = [&](const std::u16string& suffix) {
        return selection.stem.ends_with(suffix);
    };
    selection.isNonEnglishLocale =
        isTranslation ? *isTranslation : std::ranges::any_of(localeSuffixes, endsStem);
    if (selection.isNonEnglishLocale && !endsStem(currentLocaleSuffix))
        selection.skipped = Fate::SkippedLanguage;
    return selection;
}

bool isValidFilename(const fl::filesystem::path& path) {
    const std::u16string extension = fl::filesystem::extract_extension(path);
    return extension == kZipExtension || extension == kJsonExtension;
}

} // namespace reference::docparser
