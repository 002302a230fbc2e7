#include "tools/refdoc/pages/Frames.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/pages/SitePages.hpp"

#include <algorithm>
#include <functional>
#include <utility>

namespace refdoc::site {

using fl::i18n::to_string;
using html::LanguageLink;
using html::PageFrame;

namespace {

constexpr char16_t kStartTitle[] = u"Reference documentation";

// \param pathIn  returns the path to link to from the page, for each language
std::vector<LanguageLink>
languageLinks(const SiteLanguages& languages, std::u16string_view current, const std::string& path,
              const std::function<std::string(const SiteLanguage&)>& pathIn) {
    std::vector<LanguageLink> links;
    if (languages.size() == 1)
        return links;
    for (const SiteLanguage& language : languages)
        links.push_back({to_string(language.code), html::relativeUrl(path, pathIn(language)),
                         language.code == current});
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
std::string nearestPath(const SiteLanguage& language, const Product& product,
                        const std::u16string& section, const std::optional<std::u16string>& href) {
    const auto edition = std::ranges::find(product.editions, language.code, &Edition::language);
    if (edition == product.editions.end())
        return startPath(language);
    if (!edition->isBroken() && !edition->resources.contains(section))
        return startPath(language);
    const std::string* page = href ? pageOf(product, *edition, section, *href) : nullptr;
    return language.folder + (page ? *page : product.pages.at(section).index);
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
    const std::string path = nearestPath(language, product, section, href);
    PageFrame frame = frameOf(std::move(title), language, path);
    frame.crumbs.push_back({kStartTitle, html::relativeUrl(path, startPath(language))});
    if (href)
        frame.crumbs.push_back(
            {edition.resources.at(section).header.getProductName(),
             html::relativeUrl(path, nearestPath(language, product, section, std::nullopt))});
    frame.languages = languageLinks(languages, language.code, path, [&](const SiteLanguage& other) {
        return nearestPath(other, product, section, href);
    });
    return frame;
}

} // namespace refdoc::site
