#include "tools/refdoc/site/SitePaths.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/Queries.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/site/SiteFolder.hpp"

#include <fmt/format.h>

#include <set>
#include <utility>

namespace refdoc::site {

using reference::docparser::DocResourceParser;
using reference::docparser::LookupIndex;

namespace {

std::set<std::u16string> hrefsIn(const Product& product, const std::u16string& section) {
    std::set<std::u16string> hrefs;
    for (const Edition& edition : product.editions) {
        const auto resource = edition.content->resources.find(section);
        if (resource == edition.content->resources.end())
            continue;
        for (const auto& [href, items] : resource->second.items)
            hrefs.insert(href);
    }
    return hrefs;
}

std::map<std::u16string, std::u16string> sectionsIn(const Product& product) {
    std::map<std::u16string, std::u16string> sections;
    for (const Edition& edition : product.editions) {
        for (const auto& [key, resource] : edition.content->resources)
            sections.try_emplace(key, resource.header.getProductName());
    }
    return sections;
}

} // namespace

SitePaths::SitePaths() : names_{kIndexName, kAssetFolder, SiteFolder::kListName} {
    FileNames searchNames{};
    for (const std::u16string& language : allLanguages()) {
        // English is the first language, and its pages are not in a folder of their own.
        const bool isEnglish = languages_.empty();
        languages_.push_back(
            {language, isEnglish ? "" : names_.addFolder(language) + '/',
             fmt::format("{}/search/{}/", kAssetFolder, searchNames.addFolder(language))});
    }
}

void SitePaths::choose(const std::u16string& name, Product& product) {
    if (product.editions.empty())
        return;
    SectionNames& sections = sections_[name];
    if (SectionNames present = sectionsIn(product); !present.empty())
        sections = std::move(present);
    // The file with the key and the English name is broken, but lookup files may have them.
    if (product.editions.front().isBroken()) {
        const auto [key, displayName] = lookupSectionOf(name);
        if (sections.empty() || sections.contains(key))
            sections.insert_or_assign(key, displayName);
    }
    for (const auto& [key, displayName] : sections) {
        const auto [folder, isNew] = folders_.try_emplace({name, key});
        if (isNew)
            folder->second = names_.addFolder(key) + '/';
        SectionPages& pages = product.pages[key];
        pages.displayName = displayName;
        pages.index = folder->second + std::string(kIndexName);
        FileNames names{kIndexName};
        for (const std::u16string& href : hrefsIn(product, key))
            pages.items.emplace(href, folder->second + names.addPage(href));
    }
}

// Returns the product's own name for both if the lookup index does not have it.
std::pair<std::u16string, std::u16string>
SitePaths::lookupSectionOf(const std::u16string& product) {
    if (!lookupSections_) {
        lookupSections_.emplace();
        const LanguageGuard english(DocResourceParser::ParsingTools::kEnglishLocale);
        const LookupIndex index = DocResourceParser::getResourceLookupFiles();
        for (const auto* part : {&index.installed, &index.notInstalled}) {
            for (const auto& [key, resource] : *part)
                lookupSections_->try_emplace(resource.header.getProduct(),
                                             std::pair(key, resource.header.getProductName()));
        }
    }
    const auto section = lookupSections_->find(product);
    return section == lookupSections_->end() ? std::pair(product, product) : section->second;
}

} // namespace refdoc::site
