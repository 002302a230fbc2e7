#include "docparser/parsing/JsonAccess.hpp"

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/Members.hpp"
#include "docparser/parsing/StringConverters.hpp"

#include <string_view>

namespace reference::docparser {

namespace json = boost::json;

namespace {

struct ApplicationConverters {
    fl::i18n::codecvt_ascii_to_ustring ascii{/*strict=*/false};
    fl::i18n::codecvt_string_to_ustring utf8{"utf8", /*replaceIllFormed=*/true};
    StringConverters both{ascii, utf8};
};

const StringConverters& converters() {
    static const ApplicationConverters instance;
    return instance.both;
}

// Creates the converters when the library is loaded.
[[maybe_unused]] const StringConverters& createdAtLoad = converters();

std::string_view describe(json::kind type) {
    switch (type) {
    case json::kind::object: return "an object";
    case json::kind::array: return "an array";
    case json::kind::string: return "a string";
    case json::kind::bool_: return "a Boolean";
    case json::kind::null: return "null";
    case json::kind::int64:
    case json::kind::uint64:
    case json::kind::double_: break;
    }
    return "a number";
}

[[noreturn]] void throwWrongType(const json::value& value, json::kind expected) {
    std::string reason("expected ");
    reason.append(describe(expected)).append(", found ").append(describe(value.kind()));
    throw FormatError(&value, std::move(reason));
}

} // namespace

std::u16string getFluString(const json::value& value, StringParsingType type) {
    return converters().convert(getJsonString(value), type);
}

std::u16string getFluString(const json::object& object, const std::string& key,
                            StringParsingType type) {
    return getFluString(getRequired(object, key), type);
}

std::u16string getFluStringWithFallback(const json::object& object, const std::string& key,
                                        StringParsingType type) {
    const auto found = object.find(key);
    return found == object.end() ? std::u16string() : getFluString(found->value(), type);
}

std::string_view getJsonString(const json::value& value) {
    const json::string* string = value.if_string();
    if (!string)
        throwWrongType(value, json::kind::string);
    return *string;
}

const json::object& getJsonObject(const json::value& value) {
    const json::object* object = value.if_object();
    if (!object)
        throwWrongType(value, json::kind::object);
    return *object;
}

const json::array& getJsonArray(const json::value& value) {
    const json::array* array = value.if_array();
    if (!array)
        throwWrongType(value, json::kind::array);
    return *array;
}

const json::array& getJsonArray(const json::value& object, const std::string& key) {
    return getJsonArray(getRequired(getJsonObject(object), key));
}

} // namespace reference::docparser
