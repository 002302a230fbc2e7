#include "tools/refdoc/site/PageDirectory.hpp"

#include "tools/refdoc/session/HelpLinks.hpp"

#include <vector>

namespace refdoc::site {

namespace {

// Returns the folders that a path is in, the nearest first.
std::vector<std::u16string> foldersOf(const std::u16string& path) {
    std::vector<std::u16string> folders;
    for (std::size_t slash = path.rfind(u'/'); slash != path.npos && slash > 0;
         slash = path.rfind(u'/', slash - 1))
        folders.push_back(path.substr(0, slash));
    return folders;
}

} // namespace

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
    for (const std::u16string& folder : foldersOf(location)) {
        const auto found = locations_.find(folder);
        if (found == locations_.end())
            continue;
        const std::u16string href = location.substr(folder.size() + 1);
        for (const auto& [product, section] : found->second) {
            std::string page = pageIn(products_.at(product), section, language, href);
            if (!page.empty())
                return page;
        }
    }
    return {};
}

std::set<std::u16string> PageDirectory::neighbours() const {
    std::set<std::u16string> neighbours;
    for (const auto& [location, sections] : locations_) {
        std::set<std::u16string> products;
        for (const std::u16string& folder : foldersOf(location + u'/')) {
            if (const auto found = locations_.find(folder); found != locations_.end()) {
                for (const auto& [product, section] : found->second)
                    products.insert(product);
            }
        }
        if (products.size() > 1)
            neighbours.merge(products);
    }
    return neighbours;
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
