#pragma once

#include "docparser/DocResourceParser.hpp"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace refdoc {

/// Returns those of the keys that any section has.
template <class T>
std::set<std::u16string> keysIn(const std::vector<std::u16string>& keys,
                                const reference::docparser::ResourceMap<T>& sections) {
    std::set<std::u16string> found;
    for (const std::u16string& key : keys) {
        for (const auto& [sectionKey, resource] : sections) {
            if (resource.items.contains(key))
                found.insert(key);
        }
    }
    return found;
}

/// Removes all items that have none of these keys, and the sections that become empty. Copies
/// nothing.
template <class T>
void keepOnly(const std::vector<std::u16string>& keys,
              reference::docparser::ResourceMap<T>& sections) {
    for (auto section = sections.begin(); section != sections.end();) {
        typename reference::docparser::DocResource<T>::Items kept;
        for (const std::u16string& key : keys) {
            if (auto item = section->second.items.extract(key))
                kept.insert(std::move(item));
        }
        section->second.items = std::move(kept);
        section = section->second.items.empty() ? sections.erase(section) : std::next(section);
    }
}

/// Returns the keys that were not found, each once, in the given order.
inline std::vector<std::u16string> missingKeys(const std::vector<std::u16string>& keys,
                                               std::set<std::u16string> found) {
    std::vector<std::u16string> missing;
    for (const std::u16string& key : keys) {
        if (found.insert(key).second)
            missing.push_back(key);
    }
    return missing;
}

} // namespace refdoc
