#include "docparser/retrieval/LookupMerge.hpp"

#include <string_view>
#include <unordered_set>

namespace reference::docparser {

using property::RefItemLookup;

namespace {

void appendNewHrefs(std::vector<RefItemLookup>& target, const std::vector<RefItemLookup>& source) {
    // With room for all, no record moves and the views of their hrefs stay good.
    target.reserve(target.size() + source.size());
    std::unordered_set<std::u16string_view> hrefs;
    for (const RefItemLookup& record : target)
        hrefs.insert(record.getHref());
    for (const RefItemLookup& record : source) {
        if (!hrefs.contains(record.getHref()))
            hrefs.insert(target.emplace_back(record).getHref());
    }
}

} // namespace

void mergeLookupItems(DocResource<RefItemLookup>::Items& target,
                      DocResource<RefItemLookup>::Items& source) {
    target.merge(source);
    // What is left in `source` are the names that both have.
    for (const auto& [name, records] : source) {
        std::vector<RefItemLookup>& known = target.at(name);
        if (known.size() < records.size())
            appendNewHrefs(known, records);
    }
}

} // namespace reference::docparser
