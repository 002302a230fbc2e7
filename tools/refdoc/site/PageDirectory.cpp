#include "tools/refdoc/site/PageDirectory.hpp"

#include "tools/refdoc/session/HelpLinks.hpp"

namespace refdoc::site {

void PageDirectory::add(const std::u16string& name, const Product& product) {
    ProductPages& pages = products_[name] = {.sections = product.pages};
    for (const Edition& edition : product.editions) {
        for (const auto& [key, resource] : edition.content->resources)
            locations_[resolvedLink(resource.header.getHelpLocation(), {})].insert({name, key});
        HrefsBySection& missing = pages.missing[edition.language];
        for (const auto& [key, section] : product.pages) {
            const auto resource = edition.content->resources.find(key);
            std::set<std::u16string>& hrefs = missing[key];
            for (const auto& [href, path] : section.items) {
                if (resource == edition.content->resources.end() ||
                    !resource->second.items.contains(href))
                    hrefs.insert(href);
            }
        }
    }
}

std::string PageDirectory::pageOf(const std::u16string& language,
                                  const reference::docparser::IndexEntry& entry) const {
    const auto product = products_.find(entry.header->getProduct());
    if (product == products_.end())
        return {};
    const ProductPages& pages = product->second;
    const std::u16string& href = entry.record->getHref();
    std::string path = pageIn(pages, language, *entry.section, href);
    for (auto section = pages.sections.begin(); path.empty() && section != pages.sections.end();
         ++section)
        path = pageIn(pages, language, section->first, href);
    return path;
}

std::string PageDirectory::pageAt(const std::u16string& language,
                                  const std::u16string& location) const {
    for (std::size_t slash = location.rfind(u'/'); slash != location.npos && slash > 0;
         slash = location.rfind(u'/', slash - 1)) {
        const auto found = locations_.find(location.substr(0, slash));
        if (found == locations_.end())
            continue;
        for (const auto& [product, section] : found->second) {
            std::string page =
                pageIn(products_.at(product), language, section, location.substr(slash + 1));
            if (!page.empty())
                return page;
        }
    }
    return {};
}

std::string PageDirectory::pageIn(const ProductPages& product, const std::u16string& language,
                                  const std::u16string& section, const std::u16string& href) {
    const auto missing = product.missing.find(language);
    const auto pages = product.sections.find(section);
    if (missing == product.missing.end() || pages == product.sections.end() ||
        missing->second.at(section).contains(href))
        return {};
    const auto item = pages->second.items.find(href);
    return item == pages->second.items.end() ? std::string() : item->second;
}

} // namespace refdoc::site
