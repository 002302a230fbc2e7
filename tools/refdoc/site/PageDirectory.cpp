#include "tools/refdoc/site/PageDirectory.hpp"

namespace refdoc::site {

void PageDirectory::add(const std::u16string& name, const Product& product) {
    ProductPages& pages = products_[name] = {.sections = product.pages};
    for (const Edition& edition : product.editions) {
        std::set<SectionAndHref>& missing = pages.missing[edition.language];
        for (const auto& [key, section] : product.pages) {
            const auto resource = edition.resources.find(key);
            for (const auto& [href, path] : section.items) {
                if (resource == edition.resources.end() || !resource->second.items.contains(href))
                    missing.emplace(key, href);
            }
        }
    }
}

std::string PageDirectory::pageOf(const std::u16string& language,
                                  const reference::docparser::IndexEntry& entry) const {
    const auto product = products_.find(entry.header->getProduct());
    if (product == products_.end())
        return {};
    const auto& [sections, missingByLanguage] = product->second;
    const auto missing = missingByLanguage.find(language);
    if (missing == missingByLanguage.end())
        return {};
    const std::u16string& href = entry.record->getHref();
    std::string path;
    for (const auto& [key, section] : sections) {
        const auto item = section.items.find(href);
        if (item == section.items.end() || missing->second.contains({key, href}))
            continue;
        if (key == *entry.section)
            return item->second;
        if (path.empty())
            path = item->second;
    }
    return path;
}

} // namespace refdoc::site
