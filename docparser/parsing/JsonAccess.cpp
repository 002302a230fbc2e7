#include "docparser/parsing/JsonAccess.hpp"

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/Members.hpp"
#include "platform/i18n/Converter.hpp"

#include <string_view>

namespace reference::docparser {

namespace json = boost::json;

namespace {

struct Converters {
    fl::i18n::codecvt_string_to_ustring utf8{"utf8", /*replaceIllFormed=*/true};
    fl::i18n::codecvt_ascii_to_ustring ascii{/*strict=*/false};
};

const Converters& converters() {
    static const Converters instance;
    return instance;
}

[[maybe_unused]] const Converters& builtAtLoad = converters();

[[noreturn]] void throwWrongKind(const json::value& value, std::string_view expected) {
    const auto found = json::to_string(value.kind());
    throw FormatError(&value, std::string(expected) + " expected, " +
                                  std::string(found.data(), found.size()) + " found");
}

} // namespace

std::u16string getFluString(const json::value& value, StringParsingType type) {
    const std::string_view text = getJsonString(value);
    // The UTF-8 converter widens runs of ASCII as it meets them: no scan need choose between the
    // two.
    if (type == StringParsingType::Ascii)
        return converters().ascii.convert(text.data(), text.size());
    return converters().utf8.convert(text.data(), text.size());
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
    const json::string* text = value.if_string();
    if (!text)
        throwWrongKind(value, "string");
    return *text;
}

const json::object& getJsonObject(const json::value& value) {
    const json::object* object = value.if_object();
    if (!object)
        throwWrongKind(value, "object");
    return *object;
}

const json::array& getJsonArray(const json::value& value) {
    const json::array* array = value.if_array();
    if (!array)
        throwWrongKind(value, "array");
    return *array;
}

const json::array& getJsonArray(const json::value& object, const std::string& key) {
    return getJsonArray(getRequired(getJsonObject(object), key));
}

} // namespace reference::docparser
