#include "tools/refdoc/diff/compare/GroupMoves.hpp"

#include "tools/refdoc/diff/compare/Classes.hpp"
#include "tools/refdoc/diff/compare/Elements.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/string.hpp>

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace refdoc::diff {

namespace json = boost::json;

namespace {

bool isBreaking(const FieldChange& change) {
    return change.changeClass == ChangeClass::Breaking;
}

// Finds elements that moved between the groups of an item.
class GroupMoves {
public:
    explicit GroupMoves(const std::vector<FieldChange>& changes) {
        for (const FieldChange& change : changes) {
            collect(arrayOf(change.field), change.oldValue, removed_);
            collect(arrayOf(change.field), change.newValue, added_);
        }
    }

    // Returns whether nothing broke about a removed element, or about those of a removed group.
    bool isHarmlessRemoval(std::string_view array, const json::value& element) const {
        if (isGrouped(array)) {
            const auto found = added_.find({array, *firstKeyOf(element)});
            return found != added_.end() &&
                   std::ranges::none_of(compareRecords(element, *found->second), isBreaking);
        }
        if (classOfRemoved(array, element) != ChangeClass::Breaking)
            return true;
        return isGroup(element) &&
               std::ranges::all_of(element.get_object(), [&](const json::key_value_pair& member) {
                   const json::array* inner = member.value().if_array();
                   return inner == nullptr || std::ranges::all_of(*inner, [&](const auto& each) {
                              return isHarmlessRemoval(member.key(), each);
                          });
               });
    }

    bool isFromOtherGroup(std::string_view array, const json::value& element) const {
        return isGrouped(array) && removed_.contains({array, *firstKeyOf(element)});
    }

private:
    using Key = std::pair<std::string_view, std::string_view>; // array and name
    using Elements = std::map<Key, const json::value*>;

    // Adds an element, or those of a group.
    static void collect(std::string_view array, const json::value& element, Elements& elements) {
        if (element.is_null() || element.is_array())
            return; // nothing was added or removed, or only the order changed
        if (isGrouped(array)) {
            if (const json::string* key = firstKeyOf(element))
                elements.emplace(Key(array, *key), &element);
        } else if (isGroup(element)) {
            for (const json::key_value_pair& member : element.get_object()) {
                if (const json::array* inner = member.value().if_array()) {
                    for (const json::value& each : *inner)
                        collect(member.key(), each, elements);
                }
            }
        }
    }

    Elements removed_;
    Elements added_;
};

} // namespace

void softenGroupMoves(std::vector<FieldChange>& changes) {
    if (std::ranges::none_of(changes, [](const FieldChange& change) {
            return isBreaking(change) && change.newValue.is_null();
        }))
        return;
    const GroupMoves moves(changes);
    for (FieldChange& change : changes) {
        const std::string_view array = arrayOf(change.field);
        if ((change.newValue.is_null() && moves.isHarmlessRemoval(array, change.oldValue)) ||
            (change.oldValue.is_null() && moves.isFromOtherGroup(array, change.newValue)))
            change.changeClass = ChangeClass::Textual;
    }
}

} // namespace refdoc::diff
