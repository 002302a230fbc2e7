#pragma once

#include "tools/refdoc/translations/comparison/Renames.hpp"
#include "tools/refdoc/translations/comparison/Report.hpp"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace refdoc::translations {

inline Entry makeEntry(Defect defect, const Key& key) {
    return {.defect = defect,
            .section = std::u16string(key.section),
            .name = std::u16string(key.name),
            .href = std::u16string(key.href)};
}

inline void sortEntries(std::vector<Entry>& entries) {
    std::ranges::sort(entries, {}, [](const Entry& entry) {
        return std::tie(entry.defect, entry.section, entry.name, entry.href);
    });
}

/// Compares what English and a translation have by key.
///
/// \tparam Rules  how records are compared:
///                `Label labelOf(const Record&)`;
///                `bool isIdentical(const Record& english, const Record& translation)`;
///                `std::vector<std::string_view> differences(english, translation)`
template <class Record, class Rules>
Comparison compareSides(const std::map<Key, const Record*>& english,
                        const std::map<Key, const Record*>& translation, const Rules& rules) {
    Comparison result{.english = english.size()};
    Renames renames;
    for (const auto& [key, record] : english) {
        const auto found = translation.find(key);
        if (found == translation.end()) {
            result.entries.push_back(makeEntry(Defect::Missing, key));
            renames.add(key, rules.labelOf(*record));
            continue;
        }
        if (rules.isIdentical(*record, *found->second))
            result.entries.push_back(makeEntry(Defect::Identical, key));
        else
            ++result.translated;
        std::vector<std::string_view> fields = rules.differences(*record, *found->second);
        if (!fields.empty()) {
            result.entries.push_back(makeEntry(Defect::OutOfStep, key));
            result.entries.back().fields = std::move(fields);
        }
    }
    std::vector<Entry> orphaned;
    std::vector<Label> labels;
    for (const auto& [key, record] : translation) {
        if (english.contains(key))
            continue;
        orphaned.push_back(makeEntry(Defect::Orphaned, key));
        labels.push_back(rules.labelOf(*record));
    }
    renames.addReplacements(orphaned, labels);
    std::ranges::move(orphaned, std::back_inserter(result.entries));
    sortEntries(result.entries);
    return result;
}

} // namespace refdoc::translations
