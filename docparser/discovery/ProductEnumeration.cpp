#include "docparser/discovery/ProductEnumeration.hpp"

#include "docparser/discovery/FileNames.hpp"
#include "docparser/shared/Accounting.hpp"
#include "docparser/shared/Constants.hpp"
#include "platform/Failure.hpp"
#include "platform/path/DirectoryIterator.hpp"
#include "platform/path/Path.hpp"

#include <algorithm>
#include <utility>

namespace reference::docparser {

ProductLocale classifyStem(std::u16string_view stem,
                           const std::vector<std::u16string>& localeSuffixes,
                           std::u16string_view currentLocaleSuffix) noexcept {
    const bool isTranslated = std::ranges::any_of(
        localeSuffixes, [&](const std::u16string& suffix) { return stem.ends_with(suffix); });
    if (!isTranslated)
        return ProductLocale::English;
    return stem.ends_with(currentLocaleSuffix) ? ProductLocale::Current : ProductLocale::Other;
}

ProductLists findProducts(const std::u16string& root,
                          const std::vector<std::u16string>& localeSuffixes,
                          const std::u16string& currentLocaleSuffix, LoadAccount* account) {
    ProductLists products;
    const auto skip = [&](const fl::filesystem::directory_iterator& file, Fate fate) {
        if (account)
            noteSkipped(*account, file.full_pathname().string(), {}, fate);
    };
    // A folder that vanishes or can't be read ends the walk; what was found before is of use.
    platform::ignoreFailure([&] {
        if (root.empty())
            return;
        fl::filesystem::directory_iterator file(fl::filesystem::make_native_form(root), u"*");
        for (; file.is_open(); file.increment()) {
            const fl::filesystem::path name = fl::filesystem::make_native_form(file.filename());
            if (!isValidFilename(name)) {
                skip(file, Fate::SkippedName);
                continue;
            }
            std::u16string stem = fl::filesystem::extract_stem(name);
            const ProductLocale locale = classifyStem(stem, localeSuffixes, currentLocaleSuffix);
            if (locale == ProductLocale::Other) {
                skip(file, Fate::SkippedLanguage);
                continue;
            }
            const bool isZip = fl::filesystem::extract_extension(name) == kZipExtension;
            auto& target = isZip ? products.zipProducts : products.jsonProducts;
            target.emplace_back(std::move(stem), locale == ProductLocale::Current,
                                file.full_pathname().string());
        }
    });
    return products;
}

} // namespace reference::docparser
