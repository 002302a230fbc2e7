#include "docparser/retrieval/LookupMerge.hpp"

#include <cstddef>
#include <string_view>
#include <unordered_set>

namespace reference::docparser {

using property::RefItemLookup;
using Items = DocResource<RefItemLookup>::Items;

namespace {

void moveNewNames(Items& target, Items& source, RetrievalObserver& observer) {
    for (auto next = source.begin(); next != source.end();) {
        const auto entry = next++;
        const auto position = target.lower_bound(entry->first);
        if (position != target.end() && position->first == entry->first)
            continue;
        observer.nameAdded(entry->first, entry->second);
        target.insert(position, source.extract(entry));
    }
}

void appendNewHrefs(const std::u16string& name, std::vector<RefItemLookup>& target,
                    const std::vector<RefItemLookup>& source, RetrievalObserver& observer) {
    // Reserving memory keeps the records in place, so that the views of their hrefs stay valid.
    target.reserve(target.size() + source.size());
    std::unordered_set<std::u16string_view> hrefs;
    for (const RefItemLookup& record : target)
        hrefs.insert(record.getHref());
    for (std::size_t index = 0; index < source.size(); ++index) {
        if (hrefs.contains(source[index].getHref())) {
            observer.recordDropped(name, target, source, index);
            continue;
        }
        const RefItemLookup& appended = target.emplace_back(source[index]);
        observer.recordAppended(name, target, source, index);
        hrefs.insert(appended.getHref());
    }
}

} // namespace

void mergeLookupItems(Items& target, Items& source, RetrievalObserver& observer) {
    moveNewNames(target, source, observer);
    for (const auto& [name, records] : source) {
        std::vector<RefItemLookup>& known = target.at(name);
        if (known.size() < records.size()) {
            appendNewHrefs(name, known, records, observer);
            continue;
        }
        for (std::size_t index = 0; index < records.size(); ++index)
            observer.recordDropped(name, known, records, index);
    }
}

} // namespace reference::docparser
