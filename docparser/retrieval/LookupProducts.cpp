#include "docparser/retrieval/LookupProducts.hpp"

#include "docparser/io/ResourceFileReader.hpp"
#include "docparser/io/ZipEntryReader.hpp"
#include "docparser/retrieval/FileReport.hpp"
#include "docparser/retrieval/LookupAccount.hpp"
#include "docparser/retrieval/LookupMerge.hpp"
#include "platform/Failure.hpp"

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
                const LookupReadContext& context, FileReport& report, LookupResults& result) {
    const bool isInstalled = context.isInstalled(key);
    LookupMap& target = isInstalled ? result.installed : result.notInstalled;
    // Nothing reads the parsed section afterwards, so its key's first insertion moves it.
    const auto [entry, isNew] = target.try_emplace(key, std::move(section));
    LookupSection& known = entry->second;
    if (isNew) {
        if (context.account)
            context.account->placed(report, key, isInstalled, known.items);
        return;
    }
    if (isTranslated)
        std::swap(known, section);
    const auto merge = [&] { mergeLookupItems(known.items, section.items); };
    if (context.account)
        context.account->merged(report, key, isInstalled, isTranslated, known.items, section.items,
                                merge);
    else
        merge();
}

// Reads one product of any kind that openAndReadFile() knows, and tells the report of it.
template <class Product>
void readLookup(const Product& product, const LookupReadContext& context, FileReport& report,
                LookupResults& result) {
    const std::u16string name = ownName(product, context.localeSuffix);
    // A product that is missing or damaged is left out; the others are served.
    report.conclude(platform::failureOf([&] {
        std::string text = openAndReadFile(product, report.problem());
        report.keepText(text);
        LookupMap sections = context.parseLookupText(std::move(text), name, report.sections());
        for (auto& [key, section] : sections)
            addSection(key, section, product.isNonEnglishLocale(), context, report, result);
    }));
}

} // namespace

void readFolderLookups(const std::vector<ProductPathData>& products,
                       const LookupReadContext& context, LookupResults& result) {
    for (const ProductPathData& product : products) {
        FileReport report(loadAccountOf(context), FileRole::Lookup, product.getFullPath(), {},
                          product.isNonEnglishLocale());
        readLookup(product, context, report, result);
    }
}

void readZipPackageLookups(const std::vector<ProductZipData>& products,
                           const std::u16string& package, const LookupReadContext& context,
                           LookupResults& result) {
    for (const ProductZipData& product : products) {
        FileReport report(loadAccountOf(context), FileRole::Lookup, package,
                          product.getEntry().getName(), product.isNonEnglishLocale());
        readLookup(product, context, report, result);
    }
}

} // namespace reference::docparser
