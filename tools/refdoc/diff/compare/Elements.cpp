#include "tools/refdoc/diff/compare/Elements.hpp"

#include <boost/json/object.hpp>
#include <boost/json/string.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace refdoc::diff {

namespace json = boost::json;

namespace {

// A link stays when its text is translated.
constexpr std::array<std::string_view, kKeyCount> kKeyMembers{"url", "name", "title"};

const json::string* memberString(const json::object& object, std::string_view name) {
    const json::value* member = object.if_contains(name);
    return member == nullptr ? nullptr : member->if_string();
}

} // namespace

const json::string* keyOf(const json::value& element, std::size_t keyIndex) {
    if (const json::string* text = element.if_string())
        return keyIndex == 0 ? text : nullptr;
    const json::object* object = element.if_object();
    if (object == nullptr)
        return nullptr;
    const json::value* info = object->if_contains("objectInfo");
    if (info != nullptr && info->is_object())
        return keyIndex == 0 ? memberString(info->get_object(), "name") : nullptr;
    return memberString(*object, kKeyMembers.at(keyIndex));
}

const json::string* firstKeyOf(const json::value& element) {
    for (std::size_t index = 0; index < kKeyCount; ++index) {
        if (const json::string* key = keyOf(element, index))
            return key;
    }
    return nullptr;
}

bool isGroup(const json::value& element) {
    const json::object* object = element.if_object();
    return object != nullptr && std::ranges::any_of(*object, [](const auto& member) {
               return member.value().is_array();
           });
}

} // namespace refdoc::diff
