#include "tools/refdoc/suggest/Suggestions.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/suggest/NearNames.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <algorithm>
#include <iterator>
#include <map>

namespace refdoc {

using fl::i18n::to_ustring;
using reference::docparser::ResourceMap;
using reference::property::RefEntity;
using reference::property::RefItem;

namespace {

constexpr std::size_t kMostHrefs = 3;

// "smooth" of "ref/smooth.html#top"
std::u16string_view fileStem(std::u16string_view href) {
    href = href.substr(0, href.find(u'#'));
    href.remove_prefix(std::min(href.rfind(u'/') + 1, href.size())); // npos + 1 is 0
    return href.substr(0, href.rfind(u'.'));
}

std::vector<std::u16string> toUstrings(const std::vector<std::string>& texts) {
    std::vector<std::u16string> result;
    std::ranges::transform(texts, std::back_inserter(result), to_ustring);
    return result;
}

bool isSame(std::u16string_view left, std::u16string_view right) {
    return editDistance(left, right, 0) == 0;
}

bool documents(const RefItem& item, std::u16string_view name) {
    return std::ranges::any_of(item.getRefEntities(), [&](const RefEntity& entity) {
        return isSame(entity.getName(), name);
    });
}

// Returns the hrefs that are near as a whole, otherwise those whose file names are near.
std::vector<std::u16string> nearAmong(const std::u16string& href,
                                      const std::vector<std::u16string_view>& all) {
    std::vector<std::u16string> near = nearNames(href, all);
    if (!near.empty())
        return near;
    std::map<std::u16string_view, std::u16string_view> hrefsByStem;
    std::vector<std::u16string_view> stems;
    for (const std::u16string_view known : all) {
        if (hrefsByStem.emplace(fileStem(known), known).second)
            stems.push_back(fileStem(known));
    }
    for (const std::u16string& stem : nearNames(fileStem(href), stems))
        near.emplace_back(hrefsByStem.at(stem));
    return near;
}

} // namespace

std::string didYouMean(const std::vector<std::u16string>& names, std::string_view otherwise) {
    if (names.empty())
        return std::string(otherwise);
    std::vector<std::string> quotedNames;
    std::ranges::transform(names, std::back_inserter(quotedNames), quoted);
    return "; did you mean " + alternatives(quotedNames) + '?';
}

std::string didYouMean(std::string_view name, const std::vector<std::string>& known) {
    const std::vector<std::u16string> names = toUstrings(known);
    return didYouMean(nearNames(to_ustring(name), {names.begin(), names.end()}, /*maximum=*/1));
}

std::optional<std::string> onlyNearestName(std::string_view name,
                                           const std::vector<std::string>& known) {
    const std::u16string wanted = to_ustring(name);
    const std::vector<std::u16string> names = toUstrings(known);
    const std::vector<std::u16string> nearest =
        nearNames(wanted, {names.begin(), names.end()}, /*maximum=*/2);
    if (nearest.empty())
        return std::nullopt;
    const std::size_t distance = editDistance(wanted, nearest.front(), wanted.size());
    if (nearest.size() > 1 && editDistance(wanted, nearest.back(), distance) == distance)
        return std::nullopt;
    return fl::i18n::to_string(nearest.front());
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
    named.resize(std::min(named.size(), kMostHrefs));
    return named;
}

} // namespace refdoc
