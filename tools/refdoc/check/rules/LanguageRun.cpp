#include "tools/refdoc/check/rules/LanguageRun.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/ProductNames.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
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

void addLookups(const ResourceMap<RefItemLookup>& resources, bool isInstalled, LanguageRun& run) {
    for (const auto& [key, resource] : resources) {
        LookupSection section{
            resource.header.getProduct(), resource.header.getHelpLocation(), isInstalled, {}};
        for (const auto& [name, records] : resource.items) {
            for (const RefItemLookup& record : records)
                section.records.push_back({name, record.getHref()});
        }
        run.lookups.insert_or_assign(key, std::move(section));
    }
}

void retrieveProduct(const std::u16string& product, LanguageRun& run) {
    std::optional<ResourceMap<RefItem>> resources;
    try {
        resources = DocResourceParser::getResourceFile(product);
    } catch (const DocParserException&) {
        return; // The account tells why.
    }
    for (const auto& [key, resource] : *resources)
        run.products[product].emplace(key, sectionOf(resource));
}

} // namespace

void addFullProducts(const std::vector<std::u16string>& languages, ProductNames& names) {
    for (const std::u16string& language : languages) {
        const LanguageGuard current(language);
        std::ranges::move(productNames(), std::inserter(names, names.end()));
    }
}

LanguageRun runLanguage(const std::u16string& language, ProductNames& names,
                        const std::function<void()>& step) {
    const LanguageGuard current(language);
    LanguageRun run{language, {}, {}, {}};
    const LoadAccount::Scope scope(run.account);
    const auto lookups = DocResourceParser::getResourceLookupFiles();
    addLookups(lookups.installed, /*isInstalled=*/true, run);
    addLookups(lookups.notInstalled, /*isInstalled=*/false, run);
    step();
    for (const auto& [key, section] : run.lookups)
        names.insert(section.product);
    for (const std::u16string& product : names) {
        retrieveProduct(product, run);
        step();
    }
    return run;
}

} // namespace refdoc::check
