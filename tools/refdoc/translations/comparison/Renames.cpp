#include "tools/refdoc/translations/comparison/Renames.hpp"

#include "tools/refdoc/suggest/NearNames.hpp"

#include <cstddef>

namespace refdoc::translations {

namespace {

// More pairs of hrefs than this would take seconds to compare.
constexpr std::size_t kMostPairs = 100'000;

// The name of the file that an href leads to, without folder and anchor.
std::u16string_view fileOf(std::u16string_view href) {
    href = href.substr(0, href.find(u'#'));
    const std::size_t slash = href.rfind(u'/');
    return slash == std::u16string_view::npos ? href : href.substr(slash + 1);
}

template <class Map>
const Key* valueOf(const Map& map, const typename Map::key_type& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

} // namespace

void Renames::add(const Key& missing, const Label& label) {
    Section& section = sections_[missing.section];
    const std::u16string_view file = fileOf(missing.href);
    if (!label.empty()) {
        section.byLabel.emplace(label, missing);
        section.byLabelAndFile.emplace(std::pair(label, file), missing);
    }
    if (!section.byFile.emplace(file, missing).second)
        section.ambiguousFiles.insert(file);
    if (section.byHref.emplace(missing.href, missing).second)
        section.hrefs.push_back(missing.href);
}

void Renames::addReplacements(std::vector<Entry>& orphaned,
                              const std::vector<Label>& labels) const {
    for (std::size_t index = 0; index < orphaned.size(); ++index) {
        Entry& entry = orphaned[index];
        const auto section = sections_.find(entry.section);
        if (section == sections_.end())
            continue;
        const bool comparesHrefs = section->second.hrefs.size() * orphaned.size() <= kMostPairs;
        if (const Key* key = find(section->second, entry, labels[index], comparesHrefs))
            entry.replacement = {std::u16string(key->name), std::u16string(key->href)};
    }
}

const Key* Renames::find(const Section& section, const Entry& orphaned, const Label& label,
                         bool comparesHrefs) {
    const std::u16string_view file = fileOf(orphaned.href);
    if (const Key* key = valueOf(section.byLabelAndFile, {label, file}))
        return key;
    if (const Key* key = valueOf(section.byLabel, label))
        return key;
    if (const Key* key = valueOf(section.byFile, file))
        return section.ambiguousFiles.contains(file) ? nullptr : key;
    if (!comparesHrefs)
        return nullptr;
    const std::vector<std::u16string> near = nearNames(orphaned.href, section.hrefs, 1);
    return near.empty() ? nullptr : &section.byHref.at(near.front());
}

} // namespace refdoc::translations
