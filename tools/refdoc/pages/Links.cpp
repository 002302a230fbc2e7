#include "tools/refdoc/pages/Links.hpp"

#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/session/HelpLinks.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>

namespace refdoc::site {

namespace {

// "ref/a.html" + "../b.html" = "b.html"
std::u16string joined(const std::u16string& href, const std::u16string& link) {
    std::u16string folder = href.substr(0, href.rfind(u'/') + 1);
    std::u16string rest = link;
    while (rest.starts_with(u"../") && !folder.empty()) {
        rest.erase(0, 3);
        folder.pop_back();
        folder.resize(folder.rfind(u'/') + 1);
    }
    return folder + (rest.starts_with(u"./") ? rest.substr(2) : rest);
}

std::u16string_view fragmentOf(std::u16string_view link) {
    const std::size_t end = link.find(u'#');
    return end == link.npos ? std::u16string_view() : link.substr(end + 1);
}

} // namespace

Links::Links(const Product& product, const Edition& edition, const std::u16string& section,
             const std::u16string& href, const FindPageAt& findPage)
    : product_(product), edition_(edition), section_(section), href_(href), findPage_(findPage) {}

std::optional<std::string> Links::urlOf(const std::u16string& link) const {
    const auto urlTo = [&](const std::string& page, std::u16string_view fragment) {
        return html::relativeUrl(product_.pages.at(section_).items.at(href_), page,
                                 visibleLine(fragment));
    };
    if (const std::optional<Target> target = targetOf(link))
        return urlTo(*target->page, target->fragment);
    if (!findPage_ || leavesDocumentation(link))
        return std::nullopt;
    const std::string page = findPage_(edition_.language, resolvedLink(helpLocation(), link));
    return page.empty() ? std::nullopt : std::optional(urlTo(page, fragmentOf(link)));
}

std::optional<Links::Target> Links::targetOf(const std::u16string& link) const {
    if (const std::string* page = pageOf(link))
        return Target{page, {}};
    const std::u16string path = link.substr(0, link.find(u'#'));
    for (const std::u16string& href : {path.empty() ? href_ : path, joined(href_, path)}) {
        if (const std::string* page = pageOf(href))
            return Target{page, fragmentOf(link)};
    }
    return std::nullopt;
}

Reach Links::reachOf(const std::u16string& link) const {
    if (leavesDocumentation(link) || targetOf(link))
        return Reach::Product;
    return resolvedLink(helpLocation(), link).starts_with(resolvedLink(helpLocation(), {}) + u'/')
               ? Reach::HelpLocation
               : Reach::Everywhere;
}

const std::u16string& Links::helpLocation() const {
    return edition_.content->resources.at(section_).header.getHelpLocation();
}

const std::string* Links::pageOf(const std::u16string& href) const {
    if (const std::string* page = site::pageOf(product_, edition_, section_, href))
        return page;
    for (const auto& [key, section] : edition_.content->resources) {
        if (const std::string* page = site::pageOf(product_, edition_, key, href))
            return page;
    }
    return nullptr;
}

Reach reachOfLinks(const Product& product, const Edition& edition, const std::u16string& section,
                   const std::u16string& href) {
    const FindPageAt none;
    const Links links(product, edition, section, href, none);
    Reach reach = Reach::Product;
    const auto add = [&](const auto& link) {
        reach = std::max(reach, links.reachOf(link.getUrl()));
    };
    for (const auto& item : edition.content->resources.at(section).items.at(href)) {
        std::ranges::for_each(item.getSeeAlso(), add);
        std::ranges::for_each(item.getExamples(), add);
    }
    return reach;
}

} // namespace refdoc::site
