#include "docparser/io/ZipPackage.hpp"

#include "docparser/discovery/ProductSelection.hpp"
#include "platform/path/Path.hpp"

#include <optional>
#include <utility>

namespace reference::docparser {

ZipPackage::ZipPackage(const std::u16string& zipFile, const opc::FileSystemOpsSelector& selector)
    : physical_(zipFile, selector, true), package_(physical_), manager_(package_, selector) {
    package_.open(opc::OpenMode(0));
}

std::vector<ProductZipData>
ZipPackage::findProducts(bool isNonEnglishLocale, const std::vector<std::u16string>& localeSuffixes,
                         const std::u16string& currentLocaleSuffix, RetrievalObserver& observer) {
    const auto leaves = manager_.getAllLeafs();
    std::optional<bool> isTranslation;
    if (leaves.size() == 1)
        isTranslation = isNonEnglishLocale;

    std::vector<ProductZipData> products;
    products.reserve(leaves.size());
    for (const opc::qorservices::FileSystemEntry& leaf : leaves) {
        ProductSelection selection =
            selectProduct(fl::filesystem::make_native_form(leaf.getBaseName(), /*isName=*/true),
                          localeSuffixes, currentLocaleSuffix, isTranslation);
        if (selection.skipped)
            observer.fileSkipped({}, entryNameOf(leaf), *selection.skipped);
        else
            products.emplace_back(std::move(selection.stem), selection.isNonEnglishLocale, leaf,
                                  manager_);
    }
    return products;
}

} // namespace reference::docparser
