#include "docparser/parsing/JsonAccess.hpp"

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/Members.hpp"
#include "platform/i18n/Converter.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>
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

// Whether all bytes lie in 01..7E, so that widening them is decoding them. NUL and DEL do not.
bool isPlain(std::string_view text) noexcept {
    // Eight bytes at a time: compilers do not turn the byte loop, which may end early, into that.
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighBits = 0x80 * kOnes;
    constexpr std::uint64_t kDels = 0x7F * kOnes;
    for (; text.size() >= sizeof(std::uint64_t); text.remove_prefix(sizeof(std::uint64_t))) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data(), sizeof word);
        const std::uint64_t isNulOrHigh = (word - kOnes) | word;
        const std::uint64_t dels = word ^ kDels; // DEL is zero here
        const std::uint64_t isDel = (dels - kOnes) & ~dels;
        if (((isNulOrHigh | isDel) & kHighBits) != 0)
            return false;
    }
    return std::ranges::all_of(text, [](char byte) { return byte >= 0x01 && byte <= 0x7E; });
}

[[noreturn]] void throwWrongKind(const json::value& value, std::string_view expected) {
    const auto found = json::to_string(value.kind());
    throw FormatError(&value, std::string(expected) + " expected, " +
                                  std::string(found.data(), found.size()) + " found");
}

} // namespace

std::u16string getFluString(const json::value& value, StringParsingType type) {
    const json::string* text = value.if_string();
    if (!text)
        throwWrongKind(value, "string");
    if (type == StringParsingType::Ascii || isPlain(*text))
        return converters().ascii.convert(text->data(), text->size());
    return converters().utf8.convert(text->data(), text->size());
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
