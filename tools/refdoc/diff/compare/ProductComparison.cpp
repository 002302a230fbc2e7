#include "tools/refdoc/diff/compare/ProductComparison.hpp"

#include "docparser/Queries.hpp"
#include "docparser/json/RecordFields.hpp"
#include "docparser/json/ToJson.hpp"
#include "tools/refdoc/diff/compare/FieldChanges.hpp"
#include "tools/refdoc/diff/compare/RecordLists.hpp"

#include <boost/json/object.hpp>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace refdoc::diff {

namespace json = boost::json;

using reference::docparser::DocResource;
using reference::docparser::toUtf8;
using reference::json::toJson;
using reference::property::RefItem;

namespace {

// What one tree has under a section key; null if it has nothing.
struct Section {
    const DocResource<RefItem>* resources = nullptr;
    const ProductRecords::LookupSection* lookup = nullptr;

    bool isEmpty() const { return resources == nullptr && lookup == nullptr; }
};

struct SectionPair {
    Section oldSection{};
    Section newSection{};
};

using Sections = std::map<std::u16string, SectionPair>;

void collect(const ProductRecords& records, bool hasResources, bool hasLookup,
             Section SectionPair::*side, Sections& sections) {
    if (hasResources) {
        for (const auto& [key, section] : records.resources)
            (sections[key].*side).resources = &section;
    }
    if (hasLookup) {
        for (const auto& [key, section] : records.lookup)
            (sections[key].*side).lookup = section;
    }
}

template <class Part>
json::value toJsonOrNull(const Part* part) {
    return part == nullptr ? json::value() : toJson(*part);
}

json::value valueOf(const Section& section) {
    return json::object{{"resources", toJsonOrNull(section.resources)},
                        {"lookup", toJsonOrNull(section.lookup)}};
}

json::value valueOf(const ProductRecords& records) {
    json::object lookup;
    for (const auto& [key, section] : records.lookup)
        lookup.emplace(toUtf8(key), toJson(*section));
    return json::object{{"resources", toJson(records.resources)}, {"lookup", std::move(lookup)}};
}

template <class Part>
json::value headerOf(const Part* part) {
    return part == nullptr ? json::value() : toJson(part->header);
}

// Returns the map of a part that may be missing.
template <class Map, class Part>
const Map& itemsOf(const Part* part) {
    static const Map nothing;
    return part == nullptr ? nothing : part->items;
}

class ProductComparison {
public:
    ProductComparison(std::string product, const ProductRecords& olds, const ProductRecords& news)
        : olds_(olds),
          news_(news),
          isDamaged_(olds.areResourcesDamaged || news.areResourcesDamaged || olds.isLookupDamaged ||
                     news.isLookupDamaged) {
        result_.product = std::move(product);
    }

    ProductChanges compare() {
        if (!isDamaged_ && olds_.exists != news_.exists) {
            compareWhole();
            return std::move(result_);
        }
        for (const auto& [key, pair] : sections())
            compareSection(toUtf8(key), pair.oldSection, pair.newSection);
        return std::move(result_);
    }

private:
    void add(Change change) {
        change.product = result_.product;
        result_.changes.push_back(std::move(change));
    }

    void add(std::vector<Change> changes) {
        for (Change& change : changes)
            add(std::move(change));
    }

    void compareWhole() {
        if (olds_.exists)
            add(Change{.id = ChangeId::ProductRemoved,
                       .changeClass = ChangeClass::Breaking,
                       .oldValue = valueOf(olds_)});
        else
            add(Change{.id = ChangeId::ProductAdded,
                       .changeClass = ChangeClass::Notable,
                       .newValue = valueOf(news_)});
    }

    Sections sections() const {
        const bool hasResources = !olds_.areResourcesDamaged && !news_.areResourcesDamaged;
        const bool hasLookup = !olds_.isLookupDamaged && !news_.isLookupDamaged;
        Sections sections;
        collect(olds_, hasResources, hasLookup, &SectionPair::oldSection, sections);
        collect(news_, hasResources, hasLookup, &SectionPair::newSection, sections);
        return sections;
    }

    // A section of a damaged product may have been in the damaged file, so that its records count
    // one by one.
    void compareSection(const std::string& key, const Section& oldSection,
                        const Section& newSection) {
        if (!isDamaged_ && newSection.isEmpty())
            add(Change{.id = ChangeId::SectionRemoved,
                       .changeClass = ChangeClass::Breaking,
                       .section = key,
                       .oldValue = valueOf(oldSection)});
        else if (!isDamaged_ && oldSection.isEmpty())
            add(Change{.id = ChangeId::SectionAdded,
                       .changeClass = ChangeClass::Notable,
                       .section = key,
                       .newValue = valueOf(newSection)});
        else
            compareParts(key, oldSection, newSection);
    }

    void compareParts(const std::string& key, const Section& oldSection,
                      const Section& newSection) {
        compareHeaders(key, oldSection, newSection);
        add(compareItems(key, itemsOf<ItemMap>(oldSection.resources),
                         itemsOf<ItemMap>(newSection.resources)));
        add(compareEntries(key, itemsOf<EntryMap>(oldSection.lookup),
                           itemsOf<EntryMap>(newSection.lookup)));
    }

    // Usually both parts have the same header, whose change is reported once.
    void compareHeaders(const std::string& key, const Section& oldSection,
                        const Section& newSection) {
        std::vector<Change> changes;
        addHeaderChanges(headerOf(oldSection.resources), headerOf(newSection.resources), changes);
        addHeaderChanges(headerOf(oldSection.lookup), headerOf(newSection.lookup), changes);
        for (Change& change : changes) {
            change.section = key;
            add(std::move(change));
        }
    }

    static void addHeaderChanges(const json::value& oldHeader, const json::value& newHeader,
                                 std::vector<Change>& changes) {
        if (oldHeader.is_null() || newHeader.is_null())
            return;
        for (FieldChange& field : compareRecords(oldHeader, newHeader)) {
            Change change{.id = ChangeId::SectionChanged,
                          .changeClass = ChangeClass::Textual,
                          .field = std::move(field.field),
                          .oldField = std::move(field.oldField),
                          .oldValue = std::move(field.oldValue),
                          .newValue = std::move(field.newValue)};
            if (std::ranges::find(changes, change) == changes.end())
                changes.push_back(std::move(change));
        }
    }

    const ProductRecords& olds_;
    const ProductRecords& news_;
    bool isDamaged_;
    ProductChanges result_;
};

} // namespace

ProductChanges compareProducts(const std::u16string& product, const ProductRecords& oldRecords,
                               const ProductRecords& newRecords) {
    return ProductComparison(toUtf8(product), oldRecords, newRecords).compare();
}

} // namespace refdoc::diff
