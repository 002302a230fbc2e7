#include "tests/unit/tools/refdoc/diff/ApplyChanges.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace refdoc_tests {

namespace json = boost::json;

using refdoc::diff::Change;
using refdoc::diff::ChangeId;

namespace {

// The names of a JSON pointer, where an index is a number.
std::vector<std::pair<std::size_t, std::string>> partsOf(const std::string& pointer) {
    std::vector<std::pair<std::size_t, std::string>> parts;
    for (std::size_t start = 0; start < pointer.size();) {
        const std::size_t end = std::min(pointer.find('/', start + 1), pointer.size());
        const std::string name = pointer.substr(start + 1, end - start - 1);
        const bool isIndex = name.find_first_not_of("0123456789") == std::string::npos;
        parts.emplace_back(isIndex ? std::stoul(name) : 0, isIndex ? "" : name);
        start = end;
    }
    return parts;
}

std::string parentOf(const std::string& pointer) {
    return pointer.substr(0, pointer.rfind('/'));
}

std::size_t indexOf(const std::string& pointer) {
    return std::stoul(pointer.substr(pointer.rfind('/') + 1));
}

std::string keyOf(const json::value& element) {
    if (element.is_string())
        return std::string(element.as_string());
    const json::object& object = element.as_object();
    if (object.contains("objectInfo"))
        return std::string(object.at("objectInfo").at("name").as_string());
    for (const char* member : {"url", "name", "title"}) {
        if (object.contains(member))
            return std::string(object.at(member).as_string());
    }
    return {};
}

bool isOrder(const Change& change) {
    return change.oldValue.is_array() && change.newValue.is_array();
}

// What happens to one array, whose pointer is that in the new record.
struct ArrayChange {
    std::map<std::size_t, json::value> added{};
    const json::array* order = nullptr;
};

void arrange(json::array& elements, const ArrayChange& change) {
    for (const auto& [index, element] : change.added) {
        if (change.order == nullptr)
            elements.insert(elements.begin() + static_cast<std::ptrdiff_t>(index), element);
        else
            elements.push_back(element);
    }
    if (change.order == nullptr)
        return;
    json::array sorted;
    for (const json::value& key : *change.order) {
        for (const json::value& element : elements) {
            if (key.is_string() && keyOf(element) == key.as_string())
                sorted.push_back(element);
        }
    }
    elements = sorted.size() == elements.size() ? sorted : *change.order;
}

void applyFields(json::value& record, const std::vector<const Change*>& changes) {
    std::map<std::vector<std::pair<std::size_t, std::string>>, std::string> removed;
    std::map<std::pair<std::size_t, std::string>, ArrayChange> arrays; // the outer ones first
    const auto arrayAt = [&](const std::string& pointer) -> ArrayChange& {
        return arrays[{partsOf(pointer).size(), pointer}];
    };
    for (const Change* change : changes) {
        if (isOrder(*change))
            arrayAt(change->field).order = &change->newValue.as_array();
        else if (change->newValue.is_null())
            removed.emplace(partsOf(change->field), change->field);
        else if (change->oldValue.is_null())
            arrayAt(parentOf(change->field))
                .added.emplace(indexOf(change->field), change->newValue);
        else
            record.at_pointer(change->oldField) = change->newValue;
    }
    for (auto each = removed.rbegin(); each != removed.rend(); ++each) {
        json::array& elements = record.at_pointer(parentOf(each->second)).as_array();
        elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(indexOf(each->second)));
    }
    std::vector<std::string> complete; // arrays that were given as a whole
    for (const auto& [place, change] : arrays) {
        const std::string& pointer = place.second;
        if (std::ranges::any_of(
                complete, [&](const std::string& outer) { return pointer.starts_with(outer); }))
            continue;
        arrange(record.at_pointer(pointer).as_array(), change);
        if (change.order != nullptr && !change.order->empty() && change.order->front().is_object())
            complete.push_back(pointer + "/");
    }
}

void moveLinks(json::value& value, const std::string& oldHref, const std::string& newHref) {
    if (value.is_array()) {
        for (json::value& element : value.as_array())
            moveLinks(element, oldHref, newHref);
    } else if (value.is_object()) {
        for (json::key_value_pair& member : value.as_object()) {
            const bool isLink = member.key() == "href" && member.value().is_string();
            const std::string link = isLink ? std::string(member.value().as_string()) : "";
            if (isLink && link.starts_with(oldHref + "#"))
                member.value() = newHref + link.substr(oldHref.size());
            moveLinks(member.value(), oldHref, newHref);
        }
    }
}

// The changes of the records of one part, "resources" or "lookup", of one section.
class PartChanges {
public:
    PartChanges(json::object& items, bool isLookup) : items_(items), isLookup_(isLookup) {}

    void add(const Change& change) {
        const Place old{keyOf(change), change.oldIndex.value_or(0)};
        switch (change.id) {
        case ChangeId::ItemAdded:
        case ChangeId::LookupAdded:
            added_[{keyOf(change), change.newIndex.value_or(0)}] = change.newValue;
            break;
        case ChangeId::ItemRemoved:
        case ChangeId::LookupRemoved: gone_.insert(old); break;
        case ChangeId::ItemMoved: moved_[old] = &change; break;
        default: fields_[old].push_back(&change);
        }
    }

    void apply() {
        for (const auto& [place, changes] : fields_) {
            if (!moved_.contains(place))
                applyFields(recordAt(place), changes);
        }
        for (const auto& [place, move] : moved_) {
            json::value record = recordAt(place);
            moveLinks(record, move->href, move->newHref);
            record.as_object()["href"] = move->newHref;
            applyFields(record, fields_[place]);
            added_[{move->newHref, move->newIndex.value_or(0)}] = record;
            gone_.insert(place);
        }
        for (auto place = gone_.rbegin(); place != gone_.rend(); ++place) {
            json::array& records = items_.at(place->first).as_array();
            records.erase(records.begin() + static_cast<std::ptrdiff_t>(place->second));
        }
        for (const auto& [place, record] : added_) {
            json::value& records = items_[place.first];
            if (records.is_null())
                records = json::array();
            records.as_array().insert(
                records.as_array().begin() + static_cast<std::ptrdiff_t>(place.second), record);
        }
        removeEmptyLists();
    }

private:
    using Place = std::pair<std::string, std::size_t>; // key and index

    std::string keyOf(const Change& change) const { return isLookup_ ? change.name : change.href; }

    json::value& recordAt(const Place& place) {
        return items_.at(place.first).as_array().at(place.second);
    }

    void removeEmptyLists() {
        json::object kept;
        for (const json::key_value_pair& item : items_) {
            if (!item.value().as_array().empty())
                kept.emplace(item.key(), item.value());
        }
        items_ = std::move(kept);
    }

    json::object& items_;
    bool isLookup_;
    std::set<Place> gone_;
    std::map<Place, const Change*> moved_;
    std::map<Place, std::vector<const Change*>> fields_;
    std::map<Place, json::value> added_;
};

bool isLookupChange(const Change& change) {
    return change.id == ChangeId::LookupAdded || change.id == ChangeId::LookupRemoved ||
           change.id == ChangeId::LookupChanged;
}

void setPart(json::object& product, const char* part, const Change& change) {
    json::object& sections = product.at(part).as_object();
    sections.erase(change.section);
    if (change.newValue.is_object() && !change.newValue.at(part).is_null())
        sections.emplace(change.section, change.newValue.at(part));
}

void changeHeader(json::object& product, const char* part, const Change& change) {
    json::object& sections = product.at(part).as_object();
    if (!sections.contains(change.section))
        return;
    json::value& value = sections.at(change.section).at("header").at_pointer(change.field);
    if (value == change.oldValue)
        value = change.newValue;
}

json::object& itemsOf(json::object& product, const char* part, const std::string& section) {
    json::value& found = product.at(part).as_object()[section];
    if (found.is_null())
        found = json::object{{"header", nullptr}, {"items", json::object()}};
    return found.at("items").as_object();
}

void applyToSections(json::object& product, const std::vector<Change>& changes) {
    std::map<std::pair<std::string, bool>, PartChanges> parts;
    for (const Change& change : changes) {
        const bool isLookup = isLookupChange(change);
        if (change.id == ChangeId::SectionAdded || change.id == ChangeId::SectionRemoved) {
            setPart(product, "resources", change);
            setPart(product, "lookup", change);
        } else if (change.id == ChangeId::SectionChanged) {
            changeHeader(product, "resources", change);
            changeHeader(product, "lookup", change);
        } else {
            const char* part = isLookup ? "lookup" : "resources";
            parts
                .try_emplace({change.section, isLookup}, itemsOf(product, part, change.section),
                             isLookup)
                .first->second.add(change);
        }
    }
    for (auto& [place, part] : parts)
        part.apply();
}

} // namespace

json::value applyChanges(json::value product, const std::vector<Change>& changes) {
    if (!changes.empty() && (changes.front().id == ChangeId::ProductAdded ||
                             changes.front().id == ChangeId::ProductRemoved))
        return changes.front().newValue;
    if (!product.is_null())
        applyToSections(product.as_object(), changes);
    removeEmptyParts(product);
    return product;
}

void removeEmptyParts(json::value& product) {
    if (product.is_null())
        return;
    for (json::key_value_pair& part : product.as_object()) {
        json::object kept;
        for (const json::key_value_pair& section : part.value().as_object()) {
            if (!section.value().at("items").as_object().empty())
                kept.emplace(section.key(), section.value());
        }
        part.value() = std::move(kept);
    }
}

} // namespace refdoc_tests
