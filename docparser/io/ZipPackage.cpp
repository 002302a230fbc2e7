#include "docparser/io/ZipPackage.hpp"

#include "docparser/discovery/FileNames.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/shared/Accounting.hpp"
#include "platform/path/Path.hpp"

#include <utility>

namespace reference::docparser {

ZipPackage::ZipPackage(const std::u16string& zipFile, const opc::FileSystemOpsSelector& selector)
    : path_(zipFile),
      physical_(zipFile, selector, true),
      package_(physical_),
      manager_(package_, selector) {
    package_.open(opc::OpenMode::ReadOnly);
}

std::vector<ProductZipData>
ZipPackage::findProducts(bool isNonEnglishLocale, const std::vector<std::u16string>& localeSuffixes,
                         const std::u16string& currentLocaleSuffix, LoadAccount* account) {
    const auto leaves = manager_.getAllLeafs();
    // The suffix that each entry must be sorted by, or the answer that the package's name gives.
    const auto classify = [&](const std::u16string& stem) {
        if (leaves.size() > 1)
            return classifyStem(stem, localeSuffixes, currentLocaleSuffix);
        if (!isNonEnglishLocale)
            return ProductLocale::English;
        return stem.ends_with(currentLocaleSuffix) ? ProductLocale::Current : ProductLocale::Other;
    };

    const auto skip = [&](const opc::qorservices::FileSystemEntry& leaf, Fate fate) {
        if (account)
            noteSkipped(*account, path_, leaf.getName(), fate);
    };

    std::vector<ProductZipData> products;
    products.reserve(leaves.size());
    for (const opc::qorservices::FileSystemEntry& leaf : leaves) {
        const fl::filesystem::path name =
            fl::filesystem::make_native_form(leaf.getBaseName(), /*isName=*/true);
        if (!isValidFilename(name)) {
            skip(leaf, Fate::SkippedName);
            continue;
        }
        std::u16string stem = fl::filesystem::extract_stem(name);
        const ProductLocale locale = classify(stem);
        if (locale == ProductLocale::Other)
            skip(leaf, Fate::SkippedLanguage);
        else
            products.emplace_back(std::move(stem), locale == ProductLocale::Current, leaf,
                                  manager_);
    }
    return products;
}

} // namespace reference::docparser
