#include "docparser/retrieval/LookupProducts.hpp"

#include "docparser/io/ResourceFileReader.hpp"
#include "docparser/io/ZipEntryReader.hpp"
#include "docparser/retrieval/LookupMerge.hpp"
#include "platform/except/Completes.hpp"

#include <utility>

namespace reference::docparser {

namespace {

using LookupSection = LookupMap::mapped_type;

// The name that a product's file is parsed for: a translation goes by the product's own.
std::u16string ownName(const ProductData& product, const std::u16string& localeSuffix) {
    const std::u16string& name = product.getName();
    return product.isNonEnglishLocale() ? name.substr(0, name.find(localeSuffix)) : name;
}

void addSection(const std::u16string& key, LookupSection& section, bool isTranslated,
                LookupMap& target) {
    // Nothing reads the parsed section afterwards, so its key's first insertion moves it.
    const auto [entry, isNew] = target.try_emplace(key, std::move(section));
    if (isNew)
        return;
    if (isTranslated)
        std::swap(entry->second, section);
    mergeLookupItems(entry->second.items, section.items);
}

// Reads products of any kind that openAndReadFile() knows.
template <class Product>
void readLookups(const std::vector<Product>& products, const LookupReadContext& context,
                 LookupResults& result) {
    for (const Product& product : products) {
        const std::u16string name = ownName(product, context.localeSuffix);
        // A product that is missing or damaged is left out; the others are served.
        foundation::core::except::completes([&] {
            LookupMap sections = context.parseLookupText(openAndReadFile(product), name);
            for (auto& [key, section] : sections) {
                LookupMap& target =
                    context.isInstalled(key) ? result.installed : result.notInstalled;
                addSection(key, section, product.isNonEnglishLocale(), target);
            }
        });
    }
}

} // namespace

void readFolderLookups(const std::vector<ProductPathData>& products,
                       const LookupReadContext& context, LookupResults& result) {
    readLookups(products, context, result);
}

void readZipPackageLookups(const std::vector<ProductZipData>& products,
                           const LookupReadContext& context, LookupResults& result) {
    readLookups(products, context, result);
}

} // namespace reference::docparser
