#include "tools/refdoc/site/PageDirectory.hpp"

#include "tools/refdoc/session/HelpLinks.hpp"

namespace refdoc::site {

void PageDirectory::add(const std::u16string& name, const Product& product) {
    Sections& sections = products_[name] = {};
    for (const auto& [key, pages] : product.pages)
        sections[key].paths.insert(pages.items.begin(), pages.items.end());
    for (const Edition& edition : product.editions) {
        const auto& resources = edition.content->resources;
        for (const auto& [key, resource] : resources)
            locations_[resolvedLink(resource.header.getHelpLocation(), {})].insert({name, key});
        for (auto& [key, pages] : sections) {
            const auto resource = resources.find(key);
            std::set<std::u16string>& missing = pages.missing[edition.language];
            for (const auto& [href, path] : pages.paths) {
                if (resource == resources.end() || !resource->second.items.contains(href))
                    missing.insert(href);
            }
        }
    }
}

std::string PageDirectory::pageOf(const std::u16string& language,
                                  const reference::docparser::IndexEntry& entry) const {
    const auto product = products_.find(entry.header->getProduct());
    if (product == products_.end())
        return {};
    const Sections& sections = product->second;
    const std::u16string& href = entry.record->getHref();
    std::string path = pageIn(sections, *entry.section, language, href);
    for (auto section = sections.begin(); path.empty() && section != sections.end(); ++section)
        path = pageIn(sections, section->first, language, href);
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
                pageIn(products_.at(product), section, language, location.substr(slash + 1));
            if (!page.empty())
                return page;
        }
    }
    return {};
}

std::string PageDirectory::pageIn(const Sections& sections, const std::u16string& section,
                                  const std::u16string& language, const std::u16string& href) {
    const auto pages = sections.find(section);
    if (pages == sections.end())
        return {};
    const auto& [paths, missing] = pages->second;
    const auto missingHrefs = missing.find(language);
    if (missingHrefs == missing.end() || missingHrefs->second.contains(href))
        return {};
    const auto path = paths.find(href);
    return path == paths.end() ? std::string() : path->second;
}

} // namespace refdoc::site
