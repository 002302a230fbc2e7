#include "tools/refdoc/suggest/Suggestions.hpp"

#include "tools/refdoc/suggest/NearNames.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <algorithm>
#include <map>

namespace refdoc {

using reference::docparser::ResourceMap;
using reference::property::RefEntity;
using reference::property::RefItem;

namespace {

constexpr std::size_t kMostNames = 3;

// "smooth" of "ref/smooth.html#top"
std::u16string_view fileStem(std::u16string_view href) {
    href = href.substr(0, href.find(u'#'));
    href.remove_prefix(std::min(href.rfind(u'/') + 1, href.size())); // npos + 1 is 0
    return href.substr(0, href.rfind(u'.'));
}

bool isSame(std::u16string_view left, std::u16string_view right) {
    return editDistance(left, right, 0) == 0;
}

bool documents(const RefItem& item, std::u16string_view name) {
    return std::ranges::any_of(item.getRefEntities(), [&](const RefEntity& entity) {
        return isSame(entity.getName(), name);
    });
}

// The hrefs that are near as a whole, else those whose files have near names.
std::vector<std::u16string> nearAmong(const std::u16string& href,
                                      const std::vector<std::u16string_view>& all) {
    std::vector<std::u16string> near = nearNames(href, all, kMostNames);
    if (!near.empty())
        return near;
    std::map<std::u16string_view, std::u16string_view> hrefsByStem;
    std::vector<std::u16string_view> stems;
    for (const std::u16string_view known : all) {
        if (hrefsByStem.emplace(fileStem(known), known).second)
            stems.push_back(fileStem(known));
    }
    for (const std::u16string& stem : nearNames(fileStem(href), stems, kMostNames))
        near.emplace_back(hrefsByStem.at(stem));
    return near;
}

} // namespace

std::string didYouMean(const std::vector<std::u16string>& names, std::string_view otherwise) {
    if (names.empty())
        return std::string(otherwise);
    std::string question = "; did you mean ";
    for (const std::u16string& name : names) {
        if (&name != &names.front())
            question += &name == &names.back() ? " or " : ", ";
        question += quoted(name);
    }
    return question + '?';
}

std::vector<std::u16string> nearProducts(const std::u16string& name,
                                         const std::vector<std::u16string>& products) {
    return nearNames(name, {products.begin(), products.end()}, kMostNames);
}

std::vector<std::u16string> nearHrefs(const std::u16string& href,
                                      const ResourceMap<RefItem>& resources) {
    const std::u16string_view stem = fileStem(href);
    std::vector<std::u16string_view> all;
    std::vector<std::u16string> named;
    for (const auto& [key, resource] : resources) {
        for (const auto& [known, items] : resource.items) {
            all.push_back(known);
            const bool isNamed = std::ranges::any_of(
                items, [&](const RefItem& item) { return documents(item, href); });
            if (isNamed || (!stem.empty() && isSame(fileStem(known), stem)))
                named.push_back(known);
        }
    }
    if (named.empty())
        return nearAmong(href, all);
    named.resize(std::min(named.size(), kMostNames));
    return named;
}

} // namespace refdoc
