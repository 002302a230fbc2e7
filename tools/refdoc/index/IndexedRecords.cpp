#include "tools/refdoc/index/IndexedRecords.hpp"

#include "tools/refdoc/index/RecordRows.hpp"
#include "tools/refdoc/search/CaseFolding.hpp"

#include <algorithm>
#include <tuple>

namespace refdoc::site {

using reference::docparser::IndexEntry;

namespace {

unsigned classOfEntry(const IndexEntry& entry) {
    return (entry.isInstalled ? 0U : 2U) + (entry.record->getDeprecated() ? 1U : 0U);
}

} // namespace

IndexedRecords::IndexedRecords(const reference::docparser::LookupIndex& index) {
    forEachEntry(index, [&](const IndexEntry& entry) { entries_.push_back(entry); });
    std::ranges::stable_sort(entries_, {}, [](const IndexEntry& entry) {
        return std::tuple<unsigned, const std::u16string&>(classOfEntry(entry),
                                                           entry.record->getName());
    });
    for (unsigned number = 0; number < classStarts_.size(); ++number) {
        const auto start = std::ranges::upper_bound(entries_, number, {}, classOfEntry);
        classStarts_[number] = static_cast<std::size_t>(start - entries_.begin());
    }
}

IndexedRecords::Fields IndexedRecords::foldedFields(std::size_t record) const {
    const reference::property::RefItemLookup& fields = *entries_[record].record;
    Fields folded;
    foldCase(searchedPart(fields.getName()), folded[0]);
    foldCase(searchedPart(fields.getHref()), folded[1]);
    foldCase(searchedPart(fields.getRefPurpose()), folded[2]);
    return folded;
}

FieldMatch IndexedRecords::matchOf(std::u16string_view text, std::size_t record) const {
    const Fields fields = foldedFields(record);
    const Rank rank =
        rankOf({std::u16string(text)}, {.name = fields[0], .href = fields[1], .purpose = fields[2]})
            .value();
    return {rank.match, rank.field};
}

} // namespace refdoc::site
