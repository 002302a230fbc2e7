#include "tools/refdoc/translations/comparison/Comparisons.hpp"
#include "tools/refdoc/translations/comparison/SideComparison.hpp"

#include <algorithm>
#include <iterator>

namespace refdoc::translations {

using reference::property::RefItemLookup;

namespace {

struct LookupRules {
    Label labelOf(const RefItemLookup& record) const { return record.getName(); }

    bool isIdentical(const RefItemLookup& english, const RefItemLookup& translation) const {
        const std::u16string& purpose = translation.getRefPurpose();
        return !english.getRefPurpose().empty() &&
               (purpose.empty() || purpose == english.getRefPurpose());
    }

    std::vector<std::string_view> differences(const RefItemLookup& english,
                                              const RefItemLookup& translation) const {
        std::vector<std::string_view> fields;
        if (english.getEntityType() != translation.getEntityType())
            fields.emplace_back("entityType");
        if (english.getDeprecated() != translation.getDeprecated())
            fields.emplace_back("deprecated");
        if (english.getFunctionType() != translation.getFunctionType())
            fields.emplace_back("functionType");
        return fields;
    }
};

} // namespace

Comparison compareLookups(const LookupRecords& english, const LookupRecords& translation,
                          const std::set<Key>& dropped) {
    LookupRecords expected = english;
    std::erase_if(expected, [&](const auto& record) {
        return dropped.contains(record.first) && !translation.contains(record.first);
    });
    Comparison result = compareSides(expected, translation, LookupRules());
    result.english = english.size();
    std::ranges::transform(dropped, std::back_inserter(result.entries),
                           [](const Key& key) { return makeEntry(Defect::Dropped, key); });
    sortEntries(result.entries);
    return result;
}

} // namespace refdoc::translations
