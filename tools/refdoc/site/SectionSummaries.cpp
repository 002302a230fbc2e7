#include "tools/refdoc/site/SectionSummaries.hpp"

#include "docparser/DocResourceParser.hpp"

#include <algorithm>

namespace refdoc::site {

using reference::docparser::DocResource;
using reference::docparser::DocResourceParser;
using reference::property::DeprecationStatus;
using reference::property::RefItem;

namespace {

std::size_t countDeprecated(const DocResource<RefItem>& resource) {
    std::size_t count = 0;
    for (const auto& [href, items] : resource.items)
        count += static_cast<std::size_t>(std::ranges::count_if(items, [](const RefItem& item) {
            return item.getDeprecationStatus() != DeprecationStatus::None;
        }));
    return count;
}

std::size_t countItems(const DocResource<RefItem>& resource) {
    std::size_t count = 0;
    for (const auto& [href, items] : resource.items)
        count += items.size();
    return count;
}

SectionSummary summaryOf(const Product& product, const std::u16string& key,
                         const DocResource<RefItem>& resource) {
    SectionSummary summary{.displayName = resource.header.getProductName(),
                           .isInstalled = DocResourceParser::isProductInstalled(key),
                           .itemCount = countItems(resource),
                           .deprecatedCount = countDeprecated(resource),
                           .index = product.pages.at(key).index,
                           .findings = check::summarize(product.findings.all(), 0, 0)};
    for (const Edition& edition : product.editions) {
        if (hasOwnSection(edition, key))
            summary.languages.push_back(edition.language);
    }
    return summary;
}

} // namespace

std::vector<SectionSummary> summariesOf(const Product& product, const Edition& edition) {
    std::vector<SectionSummary> summaries;
    for (const auto& [key, resource] : edition.content->resources)
        summaries.push_back(summaryOf(product, key, resource));
    if (!edition.isBroken())
        return summaries;
    for (const auto& [key, pages] : product.pages)
        summaries.push_back({.displayName = pages.displayName,
                             .isInstalled = DocResourceParser::isProductInstalled(key),
                             .isBroken = true,
                             .index = pages.index,
                             .findings = check::summarize(product.findings.all(), 0, 0)});
    return summaries;
}

} // namespace refdoc::site
