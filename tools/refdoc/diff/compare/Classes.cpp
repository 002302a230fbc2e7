#include "tools/refdoc/diff/compare/Classes.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <algorithm>
#include <array>

namespace refdoc::diff {

namespace json = boost::json;

namespace {

constexpr std::array<std::string_view, 6> kBreakingArrays{"syntaxes",   "inputs",     "outputs",
                                                          "parameters", "properties", "values"};

// A link without '#' or with nothing behind it has no anchor.
bool hasAnchor(const json::value& link) {
    const json::string& text = link.as_string();
    const std::size_t sign = text.find('#');
    return sign != json::string::npos && sign + 1 < text.size();
}

ChangeClass breakingIf(bool existed) {
    return existed ? ChangeClass::Breaking : ChangeClass::Notable;
}

bool isEmpty(const json::value& value) {
    return value.is_string() && value.as_string().empty();
}

} // namespace

ChangeClass classOfValue(std::string_view field, const json::value& oldValue,
                         const json::value& newValue) {
    if (field.ends_with("/defaultValue"))
        return breakingIf(!isEmpty(oldValue));
    if (field.ends_with("/objectInfo/href") && oldValue.is_string() && newValue.is_string())
        return breakingIf(hasAnchor(oldValue));
    if (field == "/deprecationStatus" || field == "/deprecated")
        return ChangeClass::Notable;
    return ChangeClass::Textual;
}

ChangeClass classOfRemoved(std::string_view array, const json::value& element) {
    if (std::ranges::find(kBreakingArrays, array) != kBreakingArrays.end())
        return ChangeClass::Breaking;
    const json::object* group = element.if_object();
    if (group == nullptr)
        return ChangeClass::Textual;
    const bool isBreaking = std::ranges::any_of(*group, [](const json::key_value_pair& member) {
        const json::array* elements = member.value().if_array();
        return elements != nullptr && !elements->empty() &&
               classOfRemoved(member.key(), elements->front()) == ChangeClass::Breaking;
    });
    return isBreaking ? ChangeClass::Breaking : ChangeClass::Textual;
}

bool isGrouped(std::string_view array) {
    return array == "syntaxes" || array == "inputs" || array == "properties";
}

std::string_view arrayOf(std::string_view field) {
    std::string_view rest = field;
    for (;;) {
        const std::size_t slash = rest.rfind('/');
        if (slash == std::string_view::npos)
            return {};
        const std::string_view name = rest.substr(slash + 1);
        const bool isIndex = !name.empty() && name.find_first_not_of("0123456789") == name.npos;
        if (!isIndex)
            return name;
        rest = rest.substr(0, slash);
    }
}

} // namespace refdoc::diff
