#include "tools/refdoc/diff/compare/FieldChanges.hpp"

#include "tools/refdoc/diff/compare/Classes.hpp"
#include "tools/refdoc/diff/compare/Elements.hpp"
#include "tools/refdoc/diff/compare/GroupMoves.hpp"
#include "tools/refdoc/diff/compare/Matching.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <algorithm>
#include <set>
#include <utility>

namespace refdoc::diff {

namespace json = boost::json;

namespace {

// The prefix tells an empty key from none.
std::vector<std::string> keysOf(const json::array& elements, std::size_t keyIndex) {
    std::vector<std::string> keys;
    keys.reserve(elements.size());
    for (const json::value& element : elements) {
        const json::string* key = keyOf(element, keyIndex);
        std::string& copy = keys.emplace_back();
        if (key != nullptr)
            copy.append(1, '=').append(key->data(), key->size());
    }
    return keys;
}

// Most arrays have the same elements in the same order.
bool haveSameKeys(const json::array& olds, const json::array& news) {
    return std::ranges::equal(olds, news, [](const json::value& one, const json::value& other) {
        const json::string* oldKey = firstKeyOf(one);
        const json::string* newKey = firstKeyOf(other);
        return oldKey != nullptr && newKey != nullptr && *oldKey == *newKey;
    });
}

Matching matchElements(const json::array& olds, const json::array& news) {
    Matching matching;
    if (haveSameKeys(olds, news)) {
        for (std::size_t index = 0; index < olds.size(); ++index)
            matching.pairs.emplace_back(index, index);
        return matching;
    }
    Matcher matcher(olds.size(), news.size(), [&](std::size_t oldIndex, std::size_t newIndex) {
        return olds[oldIndex] == news[newIndex];
    });
    for (std::size_t index = 0; index < kKeyCount && !matcher.isDone(); ++index)
        matcher.matchKeys(keysOf(olds, index), keysOf(news, index));
    if (!matcher.isDone() && std::ranges::all_of(olds, isGroup) &&
        std::ranges::all_of(news, isGroup))
        matcher.matchRest();
    return matcher.take();
}

// Returns the keys of all elements; absent (null) if two elements share one, or one has none.
json::value distinctKeys(const json::array& elements) {
    json::array keys;
    std::set<std::string_view> known;
    for (const json::value& element : elements) {
        const json::string* key = firstKeyOf(element);
        if (key == nullptr || !known.emplace(key->data(), key->size()).second)
            return nullptr;
        keys.emplace_back(*key);
    }
    return keys;
}

class Comparison {
public:
    void compare(const json::value& oldValue, const json::value& newValue) {
        if (oldValue.is_object() && newValue.is_object())
            compareObjects(oldValue.get_object(), newValue.get_object());
        else if (oldValue.is_array() && newValue.is_array())
            compareArrays(oldValue.get_array(), newValue.get_array());
        else if (oldValue != newValue)
            changes_.push_back({classOfValue(newPath_, oldValue, newValue), newPath_, oldPath_,
                                oldValue, newValue});
    }

    std::vector<FieldChange> take() { return std::move(changes_); }

private:
    // Both objects have the members of the same type of record.
    void compareObjects(const json::object& olds, const json::object& news) {
        for (const json::key_value_pair& member : news) {
            if (const json::value* oldValue = olds.if_contains(member.key()))
                compareBelow(member.key(), *oldValue, member.key(), member.value());
        }
    }

    void compareArrays(const json::array& olds, const json::array& news) {
        const Matching matching = matchElements(olds, news);
        addRemoved(olds, matching.removed);
        addAdded(news, matching.added);
        if (!matching.isInOrder())
            addOrder(olds, news);
        for (const auto& [oldIndex, newIndex] : matching.pairs)
            compareBelow(std::to_string(oldIndex), olds[oldIndex], std::to_string(newIndex),
                         news[newIndex]);
    }

    void compareBelow(std::string_view oldName, const json::value& oldValue,
                      std::string_view newName, const json::value& newValue) {
        const std::size_t oldSize = oldPath_.size();
        const std::size_t newSize = newPath_.size();
        oldPath_.append("/").append(oldName);
        newPath_.append("/").append(newName);
        compare(oldValue, newValue);
        oldPath_.resize(oldSize);
        newPath_.resize(newSize);
    }

    void addRemoved(const json::array& olds, const std::vector<std::size_t>& removed) {
        for (const std::size_t index : removed) {
            const std::string path = oldPath_ + "/" + std::to_string(index);
            changes_.push_back(
                {classOfRemoved(arrayOf(path), olds[index]), path, path, olds[index], nullptr});
        }
    }

    void addAdded(const json::array& news, const std::vector<std::size_t>& added) {
        for (const std::size_t index : added) {
            const std::string path = newPath_ + "/" + std::to_string(index);
            changes_.push_back({ChangeClass::Notable, path, path, nullptr, news[index]});
        }
    }

    void addOrder(const json::array& olds, const json::array& news) {
        json::value oldOrder = distinctKeys(olds);
        json::value newOrder = distinctKeys(news);
        if (oldOrder.is_null() || newOrder.is_null()) {
            oldOrder = olds;
            newOrder = news;
        }
        changes_.push_back(
            {ChangeClass::Textual, newPath_, oldPath_, std::move(oldOrder), std::move(newOrder)});
    }

    // The names in both are those of the format, so that nothing in them needs escaping.
    std::string oldPath_;
    std::string newPath_;
    std::vector<FieldChange> changes_;
};

} // namespace

std::vector<FieldChange> compareRecords(const json::value& oldRecord,
                                        const json::value& newRecord) {
    Comparison comparison;
    comparison.compare(oldRecord, newRecord);
    std::vector<FieldChange> changes = comparison.take();
    softenGroupMoves(changes);
    return changes;
}

void followMove(json::value& record, std::string_view oldHref, std::string_view newHref) {
    if (json::array* elements = record.if_array()) {
        for (json::value& element : *elements)
            followMove(element, oldHref, newHref);
    } else if (json::object* members = record.if_object()) {
        for (json::key_value_pair& member : *members) {
            const json::string* text = member.value().if_string();
            const std::string_view link = text == nullptr ? std::string_view() : *text;
            const bool isOwn =
                link.starts_with(oldHref) && link.substr(oldHref.size()).starts_with('#');
            if (member.key() == "href" && isOwn)
                member.value() = std::string(newHref).append(link.substr(oldHref.size()));
            else
                followMove(member.value(), oldHref, newHref);
        }
    }
}

} // namespace refdoc::diff
