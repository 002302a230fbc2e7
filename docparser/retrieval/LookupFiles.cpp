#include "docparser/retrieval/LookupFiles.hpp"

#include "docparser/discovery/Locales.hpp"
#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/io/ResourceFileReader.hpp"
#include "docparser/io/ZipPackage.hpp"
#include "docparser/retrieval/FileUse.hpp"
#include "docparser/retrieval/LookupMerge.hpp"
#include "platform/package/StorageSystem.hpp"

#include <utility>
#include <vector>

namespace reference::docparser {

namespace {

using LookupSection = LookupMap::mapped_type;

// The arguments and settings that all steps of one retrieval share.
struct LookupReadContext {
    ParseLookupText parseLookupText;
    IsInstalled isInstalled;
    std::vector<std::u16string> supportedLocales; // the suffixes that mark translations
    std::u16string localeSuffix;                  // "_" and the current language, "en" included
};

// Returns the product name of a file: its stem, without the locale suffix of a translation.
std::u16string ownName(const ProductData& product, const std::u16string& localeSuffix) {
    const std::u16string& name = product.getName();
    return product.isNonEnglishLocale() ? name.substr(0, name.find(localeSuffix)) : name;
}

void addSection(const std::u16string& key, LookupSection& section, bool isTranslation,
                const LookupReadContext& context, LookupResults& result,
                RetrievalObserver& observer) {
    const bool isInstalled = context.isInstalled(key);
    LookupMap& target = isInstalled ? result.installed : result.notInstalled;
    const auto [entry, isNew] = target.try_emplace(key, std::move(section));
    if (isNew) {
        observer.sectionPlaced(key, SectionFate::New, isInstalled);
        return;
    }
    LookupSection& known = entry->second;
    if (isTranslation)
        std::swap(known, section);
    observer.sectionPlaced(key, isTranslation ? SectionFate::Overlay : SectionFate::Merged,
                           isInstalled);
    mergeLookupItems(known.items, section.items, observer);
}

// Adds products to the result; `Product` is any type that openAndReadFile() accepts.
template <class Product>
void readLookups(const std::vector<Product>& products, const LookupReadContext& context,
                 LookupResults& result, RetrievalObserver& observer) {
    for (const Product& product : products) {
        const bool isTranslation = product.isNonEnglishLocale();
        const std::u16string name = ownName(product, context.localeSuffix);
        useFile(FileRole::Lookup, fileNameOf(product), isTranslation, observer, [&] {
            LookupMap sections =
                context.parseLookupText(openAndReadFile(product, observer), name, observer);
            for (auto& [key, section] : sections)
                addSection(key, section, isTranslation, context, result, observer);
        });
    }
}

LookupResults readZipLookups(const std::vector<ProductPathData>& zipPackages,
                             const LookupReadContext& context, RetrievalObserver& observer) {
    LookupResults result;
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    for (const ProductPathData& zipFile : zipPackages) {
        const bool isTranslation = zipFile.isNonEnglishLocale();
        useFile(FileRole::Package, zipFile.getFullPath(), isTranslation, observer, [&] {
            ZipPackage package(zipFile.getFullPath(), selector);
            readLookups(package.findProducts(isTranslation, context.supportedLocales,
                                             context.localeSuffix, observer),
                        context, result, observer);
        });
    }
    return result;
}

} // namespace

LookupResults collectLookupFiles(const std::u16string& lookupFolder,
                                 ParseLookupText parseLookupText, IsInstalled isInstalled,
                                 RetrievalObserver& observer) {
    if (lookupFolder.empty())
        return {};
    const LookupReadContext context{std::move(parseLookupText), std::move(isInstalled),
                                    getSupportedDocLocales(), makeLocaleSuffix(getCurrentLocale())};
    const ProductLists products =
        findProducts(lookupFolder, context.supportedLocales, context.localeSuffix, observer);
    // Packages come first: a plain file is merged into the section of a package, never the reverse.
    LookupResults result = readZipLookups(products.zipProducts, context, observer);
    readLookups(products.jsonProducts, context, result, observer);
    return result;
}

} // namespace reference::docparser
