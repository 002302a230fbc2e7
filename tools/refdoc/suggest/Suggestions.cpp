#include "tools/refdoc/suggest/Suggestions.hpp"

#include "platform/Failure.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/path/DirectoryIterator.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/suggest/NearNames.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <algorithm>
#include <iterator>
#include <map>

namespace refdoc {

using fl::i18n::to_string;
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

bool documents(const RefItem& item, std::u16string_view name) {
    return std::ranges::any_of(item.getRefEntities(), [&](const RefEntity& entity) {
        return isSameName(entity.getName(), name);
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

std::optional<NearestName> nearestName(std::string_view name,
                                       const std::vector<std::string>& known) {
    const std::u16string wanted = to_ustring(name);
    std::vector<std::u16string> names;
    std::ranges::transform(known, std::back_inserter(names), to_ustring);
    const std::vector<std::u16string> near =
        nearNames(wanted, {names.begin(), names.end()}, /*maximum=*/2);
    if (near.empty())
        return std::nullopt;
    const auto distanceTo = [&](const std::u16string& other) {
        return nameDistance(wanted, other, wanted.size());
    };
    return NearestName{to_string(near.front()),
                       near.size() == 1 || distanceTo(near.front()) < distanceTo(near.back())};
}

std::string didYouMean(const std::optional<NearestName>& nearest) {
    return nearest ? "; did you mean \"" + nearest->name + "\"?" : std::string();
}

std::string didYouMean(std::string_view name, const std::vector<std::string>& known) {
    return didYouMean(nearestName(name, known));
}

std::vector<std::u16string> nearFolders(const std::filesystem::path& missing) {
    std::vector<std::u16string> folders;
    // A folder that cannot be read has no suggestions.
    platform::ignoreFailure([&] {
        const std::u16string parent = missing.parent_path().u16string();
        fl::filesystem::directory_iterator entry(fl::filesystem::make_native_form(parent), u"*");
        for (; entry.is_open(); entry.increment()) {
            if (std::filesystem::is_directory(entry.full_pathname().string()))
                folders.push_back(entry.filename().string());
        }
    });
    return nearNames(missing.filename().u16string(), {folders.begin(), folders.end()},
                     /*maximum=*/1);
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
            if (isNamed || (!stem.empty() && isSameName(fileStem(known), stem)))
                named.push_back(known);
        }
    }
    if (named.empty())
        return nearAmong(href, all);
    named.resize(std::min(named.size(), kMostHrefs));
    return named;
}

} // namespace refdoc
