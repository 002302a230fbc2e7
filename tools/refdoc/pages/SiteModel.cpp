#include "tools/refdoc/pages/SiteModel.hpp"

#include <algorithm>

namespace refdoc::site {

using Tools = reference::docparser::DocResourceParser::ParsingTools;

namespace {

bool isOwnFile(const Edition& edition, const Origin& origin) {
    return edition.language == Tools::kEnglishLocale ||
           edition.content->account.files[origin.file].isTranslation;
}

} // namespace

bool hasItem(const reference::docparser::DocResource<reference::property::RefItem>& section,
             const SectionPages& pages, const std::u16string& href) {
    // The pages are those of all editions, so an edition with as many items has each of them.
    return section.items.size() == pages.items.size() || section.items.contains(href);
}

const std::string* pageOf(const Product& product, const Edition& edition,
                          const std::u16string& section, const std::u16string& href) {
    const auto resource = edition.content->resources.find(section);
    if (resource == edition.content->resources.end())
        return nullptr;
    const SectionPages& pages = product.pages.at(section);
    const auto page = pages.items.find(href);
    return page != pages.items.end() && hasItem(resource->second, pages, href) ? &page->second
                                                                               : nullptr;
}

bool isFallback(const Edition& edition, const std::vector<SourceRecord>& records) {
    return !isOwnFile(edition, records.front().origin);
}

std::span<const LostRecord> lostRecords(const Edition& edition, const std::u16string& section,
                                        const std::u16string& href) {
    const auto keyOf = [](const LostRecord& lost) -> const std::u16string& {
        return lost.record.key;
    };
    const std::vector<LostRecord>& lost = edition.content->origins.at(section).lost;
    return {std::ranges::lower_bound(lost, href, {}, keyOf),
            std::ranges::upper_bound(lost, href, {}, keyOf)};
}

bool hasOwnSection(const Edition& edition, const std::u16string& section) {
    const auto origins = edition.content->origins.find(section);
    return origins != edition.content->origins.end() && isOwnFile(edition, origins->second.header);
}

} // namespace refdoc::site
