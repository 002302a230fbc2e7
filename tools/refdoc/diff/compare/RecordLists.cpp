#include "tools/refdoc/diff/compare/RecordLists.hpp"

#include "docparser/Queries.hpp"
#include "docparser/json/RecordFields.hpp"
#include "docparser/json/ToJson.hpp"
#include "tools/refdoc/diff/compare/FieldChanges.hpp"
#include "tools/refdoc/diff/compare/Matching.hpp"
#include "tools/refdoc/diff/compare/Moves.hpp"

#include <boost/json/monotonic_resource.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

namespace refdoc::diff {

using reference::docparser::toUtf8;
using reference::json::toJson;
using reference::property::RefItem;
using reference::property::RefItemLookup;

namespace {

// What differs between the two types of records.

struct Ids {
    ChangeId added;
    ChangeId removed;
    ChangeId changed;
};

constexpr Ids idsOf(const RefItem*) {
    return {ChangeId::ItemAdded, ChangeId::ItemRemoved, ChangeId::ItemChanged};
}

constexpr Ids idsOf(const RefItemLookup*) {
    return {ChangeId::LookupAdded, ChangeId::LookupRemoved, ChangeId::LookupChanged};
}

std::string namesOf(const RefItem& item) {
    std::string names;
    for (const auto& entity : item.getRefEntities())
        names.append(names.empty() ? "" : ", ").append(toUtf8(entity.getName()));
    return names;
}

std::string namesOf(const RefItemLookup& entry) {
    return toUtf8(entry.getName());
}

// Records with the same link or name are told apart by this.
std::string keyOf(const RefItem& item) {
    return namesOf(item);
}

std::string keyOf(const RefItemLookup& entry) {
    return toUtf8(entry.getHref());
}

template <class Record>
std::vector<std::string> keysOf(const std::vector<Record>& records) {
    std::vector<std::string> keys;
    keys.reserve(records.size());
    for (const Record& record : records)
        keys.push_back("=" + keyOf(record));
    return keys;
}

// The order of records with the same link or name is only kept, never reported as a change.
Matching pairByIndex(std::size_t oldCount, std::size_t newCount) {
    Matcher matcher(oldCount, newCount, [](std::size_t, std::size_t) { return false; });
    matcher.matchRest();
    return matcher.take();
}

template <class Record>
Matching matchRecords(const std::vector<Record>& olds, const std::vector<Record>& news) {
    if (olds.size() == 1 && news.size() == 1)
        return pairByIndex(1, 1);
    Matcher matcher(olds.size(), news.size(), [&](std::size_t oldIndex, std::size_t newIndex) {
        return olds[oldIndex] == news[newIndex];
    });
    matcher.matchKeys(keysOf(olds), keysOf(news));
    matcher.matchRest();
    Matching matching = matcher.take();
    return matching.isInOrder() ? matching : pairByIndex(olds.size(), news.size());
}

constexpr std::size_t kRecordSize = 32768;

// One record, and where it is.
template <class Record>
struct Place {
    const std::u16string* key = nullptr;
    const std::vector<Record>* records = nullptr;
    std::size_t index = 0;

    const Record& record() const { return (*records)[index]; }
    bool isOnlyOne() const { return records->size() == 1; }
};

template <class Record>
class ListComparison {
public:
    using Map = typename reference::docparser::DocResource<Record>::Items;

    explicit ListComparison(const std::string& section) : section_(section) {}

    void compare(const Map& olds, const Map& news) {
        auto oldEntry = olds.begin();
        auto newEntry = news.begin();
        while (oldEntry != olds.end() || newEntry != news.end()) {
            const bool isOldOnly = newEntry == news.end() ||
                                   (oldEntry != olds.end() && oldEntry->first < newEntry->first);
            const bool isNewOnly =
                !isOldOnly && (oldEntry == olds.end() || newEntry->first < oldEntry->first);
            if (isOldOnly)
                addAll(*oldEntry++, removed_);
            else if (isNewOnly)
                addAll(*newEntry++, added_);
            else
                compareLists(*oldEntry++, *newEntry++);
        }
    }

    void findMovedItems() {
        if (removed_.empty() || added_.empty())
            return;
        std::vector<MoveCandidate> removed = candidates(removed_);
        std::vector<MoveCandidate> added = candidates(added_);
        for (const Move& move : findMoves(removed, added)) {
            addMove(removed_[move.removed], added_[move.added], move.certainty);
            followMove(removed[move.removed].record, removed[move.removed].href,
                       added[move.added].href);
            removed[move.removed].record.as_object()["href"] = added[move.added].href;
            addFields(removed_[move.removed], added_[move.added], removed[move.removed].record,
                      added[move.added].record);
            removed_[move.removed].records = nullptr;
            added_[move.added].records = nullptr;
        }
    }

    std::vector<Change> take() {
        addWhole(removed_, kIds.removed);
        addWhole(added_, kIds.added);
        std::ranges::stable_sort(
            changes_, {}, [](const auto& entry) -> const std::u16string& { return *entry.first; });
        std::vector<Change> changes;
        changes.reserve(changes_.size());
        for (auto& [key, change] : changes_)
            changes.push_back(std::move(change));
        return changes;
    }

private:
    using RecordPlace = Place<Record>;
    using Entry = typename Map::value_type;

    static constexpr Ids kIds = idsOf(static_cast<const Record*>(nullptr));

    static void addAll(const Entry& entry, std::vector<RecordPlace>& places) {
        for (std::size_t index = 0; index < entry.second.size(); ++index)
            places.push_back({&entry.first, &entry.second, index});
    }

    void compareLists(const Entry& olds, const Entry& news) {
        if (olds.second == news.second)
            return;
        const Matching matching = matchRecords(olds.second, news.second);
        for (const std::size_t index : matching.removed)
            removed_.push_back({&olds.first, &olds.second, index});
        for (const std::size_t index : matching.added)
            added_.push_back({&news.first, &news.second, index});
        for (const auto& [oldIndex, newIndex] : matching.pairs) {
            const RecordPlace oldPlace{&olds.first, &olds.second, oldIndex};
            const RecordPlace newPlace{&news.first, &news.second, newIndex};
            if (!(oldPlace.record() == newPlace.record()))
                compareRecord(oldPlace, newPlace);
        }
    }

    void compareRecord(const RecordPlace& oldPlace, const RecordPlace& newPlace) {
        // Most records fit into the buffer; the changes get copies of what they need.
        std::array<unsigned char, kRecordSize> buffer;
        boost::json::monotonic_resource memory(buffer.data(), buffer.size());
        addFields(oldPlace, newPlace, toJson(oldPlace.record(), &memory),
                  toJson(newPlace.record(), &memory));
    }

    // An item without names never moves, and needs no conversion.
    static std::vector<MoveCandidate> candidates(const std::vector<RecordPlace>& places) {
        std::vector<MoveCandidate> found;
        found.reserve(places.size());
        for (const RecordPlace& place : places) {
            std::string names = namesOf(place.record());
            boost::json::value record = names.empty() ? nullptr : toJson(place.record());
            found.push_back({.href = toUtf8(*place.key),
                             .names = std::move(names),
                             .record = std::move(record)});
        }
        return found;
    }

    // Returns a change with everything that follows from the places; one of them may be null.
    Change changeAt(ChangeId id, const RecordPlace* oldPlace, const RecordPlace* newPlace) const {
        const bool hasIndex = (oldPlace != nullptr && !oldPlace->isOnlyOne()) ||
                              (newPlace != nullptr && !newPlace->isOnlyOne());
        Change change{.id = id, .section = section_};
        change.href = toUtf8((oldPlace != nullptr ? oldPlace : newPlace)->record().getHref());
        change.name = namesOf((newPlace != nullptr ? newPlace : oldPlace)->record());
        if (hasIndex && oldPlace != nullptr)
            change.oldIndex = oldPlace->index;
        if (hasIndex && newPlace != nullptr)
            change.newIndex = newPlace->index;
        return change;
    }

    void addMove(const RecordPlace& oldPlace, const RecordPlace& newPlace, int certainty) {
        Change change = changeAt(ChangeId::ItemMoved, &oldPlace, &newPlace);
        change.changeClass = ChangeClass::Breaking;
        change.field = change.oldField = "/href";
        change.oldValue = toUtf8(*oldPlace.key);
        change.newValue = toUtf8(*newPlace.key);
        change.newHref = toUtf8(*newPlace.key);
        change.certainty = certainty;
        changes_.emplace_back(oldPlace.key, std::move(change));
    }

    void addFields(const RecordPlace& oldPlace, const RecordPlace& newPlace,
                   const boost::json::value& oldRecord, const boost::json::value& newRecord) {
        std::vector<FieldChange> fields = compareRecords(oldRecord, newRecord);
        if (fields.empty())
            return;
        Change common = changeAt(kIds.changed, &oldPlace, &newPlace);
        if (std::is_same_v<Record, RefItem> && *oldPlace.key != *newPlace.key)
            common.newHref = toUtf8(*newPlace.key);
        for (FieldChange& field : fields) {
            Change change = common;
            change.changeClass = field.changeClass;
            change.field = std::move(field.field);
            change.oldField = std::move(field.oldField);
            change.oldValue = std::move(field.oldValue);
            change.newValue = std::move(field.newValue);
            changes_.emplace_back(oldPlace.key, std::move(change));
        }
    }

    void addWhole(const std::vector<RecordPlace>& places, ChangeId id) {
        const bool isRemoved = id == kIds.removed;
        for (const RecordPlace& place : places) {
            if (place.records == nullptr)
                continue; // moved
            Change change =
                isRemoved ? changeAt(id, &place, nullptr) : changeAt(id, nullptr, &place);
            change.changeClass = isRemoved ? ChangeClass::Breaking : ChangeClass::Notable;
            (isRemoved ? change.oldValue : change.newValue) = toJson(place.record());
            changes_.emplace_back(place.key, std::move(change));
        }
    }

    const std::string& section_;
    std::vector<RecordPlace> removed_;
    std::vector<RecordPlace> added_;
    std::vector<std::pair<const std::u16string*, Change>> changes_;
};

} // namespace

std::vector<Change> compareItems(const std::string& section, const ItemMap& olds,
                                 const ItemMap& news) {
    ListComparison<RefItem> comparison(section);
    comparison.compare(olds, news);
    comparison.findMovedItems();
    return comparison.take();
}

std::vector<Change> compareEntries(const std::string& section, const EntryMap& olds,
                                   const EntryMap& news) {
    ListComparison<RefItemLookup> comparison(section);
    comparison.compare(olds, news);
    return comparison.take();
}

} // namespace refdoc::diff
