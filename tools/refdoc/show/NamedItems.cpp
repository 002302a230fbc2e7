#include "tools/refdoc/show/NamedItems.hpp"

#include "docparser/Queries.hpp"
#include "tools/refdoc/session/Selection.hpp"

#include <algorithm>
#include <set>
#include <utility>

namespace refdoc {

using reference::docparser::DocResourceParser;
using reference::docparser::findNames;
using reference::docparser::IndexEntry;
using reference::docparser::NameMatch;
using reference::docparser::ResourceMap;
using reference::property::RefEntity;
using reference::property::RefItem;
using reference::property::RefItemLookup;

namespace {

std::vector<std::u16string> hrefsDocumenting(const std::u16string& name,
                                             const ResourceMap<RefItem>& resources) {
    std::vector<std::u16string> hrefs;
    for (const auto& [key, resource] : resources) {
        for (const auto& [href, items] : resource.items) {
            const bool isNamed = std::ranges::any_of(items, [&](const RefItem& item) {
                return std::ranges::count(item.getRefEntities(), name, &RefEntity::getName) > 0;
            });
            if (isNamed)
                hrefs.push_back(href);
        }
    }
    return hrefs;
}

std::vector<std::u16string> indexedHrefs(const std::u16string& name, const std::u16string& product,
                                         const ResourceMap<RefItem>& resources) {
    std::vector<std::u16string> hrefs;
    for (const NamedItem& item : itemsNamed(name, DocResourceParser::getResourceLookupFiles())) {
        const std::u16string& href = item.entry.getHref();
        if (item.product == product && !keysIn({href}, resources).empty())
            hrefs.push_back(href);
    }
    return hrefs;
}

std::vector<std::u16string> hrefsFor(const std::u16string& argument, const std::u16string& product,
                                     const ResourceMap<RefItem>& resources) {
    if (!keysIn({argument}, resources).empty())
        return {argument};
    std::vector<std::u16string> hrefs = hrefsDocumenting(argument, resources);
    if (hrefs.empty())
        hrefs = indexedHrefs(argument, product, resources);
    return hrefs.empty() ? std::vector{argument} : hrefs;
}

} // namespace

std::vector<NamedItem> itemsNamed(const std::u16string& name, const LookupResults& index) {
    std::vector<NamedItem> items;
    std::set<std::pair<std::u16string, std::u16string>> seen;
    for (const IndexEntry& found : findNames(index, name, NameMatch::Exact)) {
        const std::u16string& product = found.header->getProduct();
        if (seen.emplace(product, found.record->getHref()).second)
            items.push_back({product, *found.section, found.isInstalled, *found.record});
    }
    return items;
}

std::vector<std::u16string> hrefsFor(const std::vector<std::u16string>& arguments,
                                     const std::u16string& product,
                                     const ResourceMap<RefItem>& resources) {
    std::vector<std::u16string> hrefs;
    for (const std::u16string& argument : arguments) {
        const std::vector<std::u16string> named = hrefsFor(argument, product, resources);
        hrefs.insert(hrefs.end(), named.begin(), named.end());
    }
    return hrefs;
}

} // namespace refdoc
