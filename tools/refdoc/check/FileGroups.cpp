#include "tools/refdoc/check/FileGroups.hpp"

#include <boost/pending/disjoint_sets.hpp>

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace refdoc::check {

using reference::docparser::FileRole;
using reference::docparser::SectionAccount;

namespace {

// Returns the files in the order in which a group has them.
FileGroup englishFirst(const CheckedFiles& files) {
    FileGroup sorted;
    for (const bool isTranslation : {false, true}) {
        for (const auto& file : files) {
            if (file.second.isTranslation == isTranslation)
                sorted.push_back(&file);
        }
    }
    return sorted;
}

using Sets = boost::disjoint_sets_with_storage<>;

// Joins the files that have a section in common.
Sets joined(const FileGroup& files) {
    Sets sets(files.size());
    std::map<std::pair<FileRole, std::u16string_view>, std::size_t> owners;
    for (std::size_t number = 0; number < files.size(); ++number) {
        const auto& account = files[number]->second;
        for (const SectionAccount& section : account.sections) {
            const auto [owner, isNew] = owners.try_emplace({account.role, section.key}, number);
            if (!isNew)
                sets.union_set(owner->second, number);
        }
    }
    return sets;
}

} // namespace

std::vector<FileGroup> groupsOf(const CheckedFiles& files) {
    const FileGroup sorted = englishFirst(files);
    Sets sets = joined(sorted);
    std::vector<FileGroup> groups;
    std::unordered_map<std::size_t, std::size_t> positions; // of the groups, by set
    for (std::size_t number = 0; number < sorted.size(); ++number) {
        const auto [position, isNew] = positions.try_emplace(sets.find_set(number), groups.size());
        if (isNew)
            groups.emplace_back();
        groups[position->second].push_back(sorted[number]);
    }
    return groups;
}

} // namespace refdoc::check
