#include "tools/refdoc/pages/SiteModel.hpp"

#include <algorithm>

namespace refdoc::site {

using Tools = reference::docparser::DocResourceParser::ParsingTools;

namespace {

bool isOwnFile(const Edition& edition, const Origin& origin) {
    return edition.language == Tools::kEnglishLocale ||
           edition.account.files[origin.file].isTranslation;
}

} // namespace

const std::string* pageOf(const Product& product, const Edition& edition,
                          const std::u16string& section, const std::u16string& href) {
    const auto resource = edition.resources.find(section);
    if (resource == edition.resources.end())
        return nullptr;
    const auto& items = resource->second.items;
    const auto& pages = product.pages.at(section).items;
    const auto page = pages.find(href);
    // The pages are those of all editions, so an edition with as many items has each of them.
    const bool hasItem =
        page != pages.end() && (items.size() == pages.size() || items.contains(href));
    return hasItem ? &page->second : nullptr;
}

bool isFallback(const Edition& edition, const std::u16string& section, const std::u16string& href) {
    return !isOwnFile(edition, edition.origins.at(section).kept.at(href).front().origin);
}

std::span<const LostRecord> lostRecords(const Edition& edition, const std::u16string& section,
                                        const std::u16string& href) {
    const auto keyOf = [](const LostRecord& lost) -> const std::u16string& {
        return lost.record.key;
    };
    const std::vector<LostRecord>& lost = edition.origins.at(section).lost;
    return {std::ranges::lower_bound(lost, href, {}, keyOf),
            std::ranges::upper_bound(lost, href, {}, keyOf)};
}

bool hasOwnSection(const Edition& edition, const std::u16string& section) {
    const auto origins = edition.origins.find(section);
    return origins != edition.origins.end() && isOwnFile(edition, origins->second.header);
}

} // namespace refdoc::site
