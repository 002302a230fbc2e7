#include "tools/refdoc/pages/Frames.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/pages/SitePages.hpp"

#include <algorithm>
#include <utility>

namespace refdoc::site {

using fl::i18n::to_string;
using html::LanguageLink;
using html::PageFrame;

namespace {

constexpr char16_t kStartTitle[] = u"Reference documentation";

// \param pathIn  returns the path to link to from the page, for each language
template <class PathIn>
std::vector<LanguageLink> languageLinks(const SiteLanguages& languages, std::u16string_view current,
                                        const std::string& path, PathIn pathIn) {
    std::vector<LanguageLink> links;
    if (languages.size() == 1)
        return links;
    links.reserve(languages.size());
    for (const SiteLanguage& language : languages) {
        const bool isCurrent = language.code == current;
        links.push_back({to_string(language.code),
                         isCurrent ? std::string() : html::relativeUrl(path, pathIn(language)),
                         isCurrent});
    }
    return links;
}

PageFrame frameOf(std::u16string title, const SiteLanguage& language, const std::string& path) {
    return {.title = std::move(title),
            .language = to_string(language.code),
            .assets = html::relativeUrl(path, std::string(kAssetFolder) + '/'),
            .search = {.index = html::relativeUrl(path, language.search),
                       .pages = html::relativeUrl(path, language.folder)}};
}

std::string startPath(const SiteLanguage& language) {
    return language.folder + std::string(kIndexName);
}

// Returns the path of a page in another language: the same one, or else the nearest above it.
// \param pages  of the section
// \param page   of the item with the href, if there is a href
std::string nearestPath(const SiteLanguage& language, const Product& product,
                        const std::u16string& section, const SectionPages& pages,
                        const std::optional<std::u16string>& href, const std::string& page) {
    const auto edition = std::ranges::find(product.editions, language.code, &Edition::language);
    if (edition == product.editions.end())
        return startPath(language);
    const auto resource = edition->content->resources.find(section);
    if (resource == edition->content->resources.end())
        return edition->isBroken() ? language.folder + pages.index : startPath(language);
    return language.folder + (href && hasItem(resource->second, pages, *href) ? page : pages.index);
}

} // namespace

PageFrame startFrame(const SiteLanguages& languages, const SiteLanguage& language) {
    PageFrame frame = frameOf(kStartTitle, language, startPath(language));
    frame.search.hasFocus = true;
    frame.languages = languageLinks(languages, language.code, startPath(language), startPath);
    return frame;
}

PageFrame productFrame(const SiteLanguages& languages, const Product& product,
                       const Edition& edition, const std::u16string& section,
                       const std::optional<std::u16string>& href, std::u16string title) {
    const SiteLanguage& language =
        *std::ranges::find(languages, edition.language, &SiteLanguage::code);
    const SectionPages& pages = product.pages.at(section);
    const std::string& page = href ? pages.items.at(*href) : pages.index;
    const std::string path = language.folder + page;
    PageFrame frame = frameOf(std::move(title), language, path);
    frame.crumbs.push_back({kStartTitle, html::relativeUrl(path, startPath(language))});
    if (href)
        frame.crumbs.push_back({edition.content->resources.at(section).header.getProductName(),
                                html::relativeUrl(page, pages.index)});
    frame.languages = languageLinks(languages, language.code, path, [&](const SiteLanguage& other) {
        return nearestPath(other, product, section, pages, href, page);
    });
    return frame;
}

} // namespace refdoc::site
