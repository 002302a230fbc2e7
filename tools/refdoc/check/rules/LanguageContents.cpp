#include "tools/refdoc/check/rules/LanguageContents.hpp"

#include "docparser/DocParserException.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/ProductNames.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_set>
#include <utility>

namespace refdoc::check {

using reference::docparser::DocParserException;
using reference::docparser::DocResource;
using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;
using reference::docparser::ResourceMap;
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

void retrieveProduct(const std::u16string& product, LanguageContents& contents) {
    std::optional<ResourceMap<RefItem>> resources;
    try {
        resources = DocResourceParser::getResourceFile(product);
    } catch (const DocParserException&) {
        return; // The account has the reason.
    }
    for (const auto& [key, resource] : *resources)
        contents.products[product].emplace(key, sectionOf(resource));
}

} // namespace

bool LanguageContents::hasNames() const {
    return std::ranges::any_of(products, [](const auto& product) {
        return std::ranges::any_of(product.second, [](const auto& section) {
            return std::ranges::any_of(section.second.pages, &Page::hasNames);
        });
    });
}

void addFullProducts(const std::vector<std::u16string>& languages, ProductNames& names) {
    for (const std::u16string& language : languages) {
        const LanguageGuard current(language);
        std::ranges::move(productNames(), std::inserter(names, names.end()));
    }
}

LanguageContents retrieveLanguage(const std::u16string& language, ProductNames& names,
                                  const std::function<void()>& step) {
    const LanguageGuard current(language);
    LanguageContents contents;
    const LoadAccount::Scope scope(contents.account);
    auto lookups = DocResourceParser::getResourceLookupFiles();
    moveLookups(lookups.installed, /*isInstalled=*/true, contents);
    moveLookups(lookups.notInstalled, /*isInstalled=*/false, contents);
    step();
    for (const auto& [key, section] : contents.lookups)
        names.insert(section.resource.header.getProduct());
    for (const std::u16string& product : names) {
        retrieveProduct(product, contents);
        step();
    }
    return contents;
}

} // namespace refdoc::check
