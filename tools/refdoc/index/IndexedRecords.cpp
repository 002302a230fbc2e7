#include "tools/refdoc/index/IndexedRecords.hpp"

#include "tools/refdoc/index/RecordRows.hpp"
#include "tools/refdoc/index/words/TextOrder.hpp"
#include "tools/refdoc/search/CaseFolding.hpp"

#include <cstdint>

namespace refdoc::site {

using reference::docparser::IndexEntry;

namespace {

unsigned classOfEntry(const IndexEntry& entry) {
    return (entry.isInstalled ? 0U : 2U) + (entry.record->getDeprecated() ? 1U : 0U);
}

} // namespace

IndexedRecords::IndexedRecords(const reference::docparser::LookupIndex& index) {
    std::vector<IndexEntry> entries;
    forEachEntry(index, [&](const IndexEntry& entry) { entries.push_back(entry); });
    const std::vector<std::uint32_t> byName =
        sortedPositions(entries.size(), [&](std::size_t at) -> std::u16string_view {
            return entries[at].record->getName();
        });
    entries_.reserve(entries.size());
    for (unsigned number = 0; number <= classStarts_.size(); ++number) {
        for (const std::uint32_t position : byName) {
            if (classOfEntry(entries[position]) == number)
                entries_.push_back(entries[position]);
        }
        if (number < classStarts_.size())
            classStarts_[number] = entries_.size();
    }
}

void IndexedRecords::foldFields(std::size_t record, Fields& folded) const {
    const reference::property::RefItemLookup& fields = *entries_[record].record;
    foldCase(searchedPart(fields.getName()), folded[0]);
    foldCase(searchedPart(fields.getHref()), folded[1]);
    foldCase(searchedPart(fields.getRefPurpose()), folded[2]);
}

FieldMatch IndexedRecords::matchOf(std::u16string_view text, std::size_t record) const {
    Fields fields;
    foldFields(record, fields);
    const Rank rank =
        rankOf({std::u16string(text)}, {.name = fields[0], .href = fields[1], .purpose = fields[2]})
            .value();
    return {rank.match, rank.field};
}

} // namespace refdoc::site
