#include "tools/refdoc/check/rules/LanguageContents.hpp"

#include "docparser/DocParserException.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Parallel.hpp"
#include "tools/refdoc/session/ProductNames.hpp"

#include <algorithm>
#include <cstddef>
#include <future>
#include <unordered_set>
#include <utility>

namespace refdoc::check {

using reference::docparser::DocParserException;
using reference::docparser::DocResource;
using reference::docparser::DocResourceParser;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;
using reference::docparser::RecordAccount;
using reference::docparser::ResourceMap;
using reference::docparser::SectionAccount;
using reference::property::RefItem;
using reference::property::RefItemLookup;
using reference::property::SeeAlso;

namespace {

FullSection sectionOf(const DocResource<RefItem>& resource) {
    FullSection section{resource.header.getHelpLocation(), {}, {}};
    std::unordered_set<std::u16string> links;
    for (const auto& [href, items] : resource.items) {
        bool hasNames = false;
        for (const RefItem& item : items) {
            hasNames |= !item.getRefEntities().empty();
            for (const SeeAlso& link : item.getSeeAlso()) {
                if (links.insert(link.getUrl()).second)
                    section.links.push_back(link.getUrl());
            }
        }
        section.pages.push_back({href, hasNames});
    }
    return section;
}

void moveLookups(ResourceMap<RefItemLookup>& resources, bool isInstalled,
                 LanguageContents& contents) {
    for (auto& [key, resource] : resources)
        contents.lookups.insert_or_assign(key, LookupSection{isInstalled, std::move(resource)});
}

void retrieveLookups(const std::u16string& language, LanguageContents& contents) {
    const LanguageGuard current(language);
    const LoadAccount::Scope scope(contents.account);
    auto lookups = DocResourceParser::getResourceLookupFiles();
    moveLookups(lookups.installed, /*isInstalled=*/true, contents);
    moveLookups(lookups.notInstalled, /*isInstalled=*/false, contents);
}

struct ProductContents {
    LoadAccount account{};
    std::shared_ptr<const FullProduct> product{};
};

std::map<std::u16string, FullSection> retrieveSections(const std::u16string& product) {
    std::map<std::u16string, FullSection> sections;
    try {
        for (const auto& [key, resource] : DocResourceParser::getResourceFile(product))
            sections.emplace(key, sectionOf(resource));
    } catch (const DocParserException&) {
        // The account has the reason.
    }
    return sections;
}

ProductContents retrieveProduct(const std::u16string& name, const std::u16string& language) {
    const LanguageGuard current(language);
    ProductContents contents;
    const LoadAccount::Scope scope(contents.account);
    FullProduct product{.sections = retrieveSections(name)};
    for (const FileAccount& file : contents.account.files)
        product.paths.push_back(file.path);
    contents.product = std::make_shared<const FullProduct>(std::move(product));
    return contents;
}

bool isTranslated(const FullProduct& english, const std::u16string& language) {
    return std::ranges::any_of(english.paths, [&](const std::u16string& path) {
        return mayHaveTranslation(path, language);
    });
}

using ProductsByName = std::map<std::u16string, ProductContents>;

// Returns the products that were not there before.
std::vector<ProductsByName::value_type*> addProducts(const ProductNames& names,
                                                     ProductsByName& products) {
    std::vector<ProductsByName::value_type*> added;
    for (const std::u16string& name : names) {
        const auto [product, isNew] = products.try_emplace(name);
        if (isNew)
            added.push_back(&*product);
    }
    return added;
}

void append(LoadAccount account, LoadAccount& target) {
    const std::size_t offset = target.files.size();
    for (FileAccount& file : account.files) {
        for (SectionAccount& section : file.sections) {
            section.other += offset;
            for (RecordAccount& record : section.records) {
                record.file += offset;
                record.winner += offset;
            }
        }
        target.files.push_back(std::move(file));
    }
    target.isComplete = target.isComplete && account.isComplete;
}

} // namespace

bool LanguageContents::hasNames() const {
    return std::ranges::any_of(products, [](const auto& product) {
        return std::ranges::any_of(product.second->sections, [](const auto& section) {
            return std::ranges::any_of(section.second.pages, &Page::hasNames);
        });
    });
}

void addFullProducts(const std::vector<std::u16string>& languages, ProductNames& names) {
    names.merge(productNames(languages));
}

LanguageContents retrieveLanguage(const std::u16string& language, ProductNames& names,
                                  const FullProducts& english, const std::function<void()>& step) {
    LanguageContents contents;
    ProductsByName products;
    const auto retrieveNew = [&] {
        const auto added = addProducts(names, products);
        forEachInParallel(added.size(), [&](std::size_t number) {
            auto& [name, product] = *added[number];
            const auto known = english.find(name);
            product = known == english.end() || isTranslated(*known->second, language)
                          ? retrieveProduct(name, language)
                          : ProductContents{.product = known->second};
            step();
        });
    };
    // The index is read on this thread: the memory that another one allocates is not reused for
    // the next language.
    std::future<void> knownProducts = std::async(retrieveNew);
    retrieveLookups(language, contents);
    step();
    knownProducts.get();
    for (const auto& [key, section] : contents.lookups)
        names.insert(section.resource.header.getProduct());
    retrieveNew();
    for (auto& [name, retrieved] : products) {
        append(std::move(retrieved.account), contents.account);
        if (!retrieved.product->sections.empty())
            contents.products.emplace(name, std::move(retrieved.product));
    }
    return contents;
}

} // namespace refdoc::check
