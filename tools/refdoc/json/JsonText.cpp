#include "tools/refdoc/json/JsonText.hpp"

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include <cstddef>
#include <string_view>

namespace refdoc {

namespace json = boost::json;

namespace {

// Appends serialised JSON and escapes what Boost.JSON does not: in UTF-8 the bytes 7F, C2 80 to
// C2 9F, E2 80 A8 and E2 80 A9.
void appendEscaped(std::string& text, std::string_view serialised) {
    std::size_t at = text.size();
    const auto byte = [&](std::size_t offset) {
        return static_cast<unsigned char>(text[at + offset]);
    };
    const auto escape = [&](std::size_t size, unsigned character) {
        text.replace(at, size, fmt::format("\\u{:04x}", character));
    };
    text += serialised;
    for (; at < text.size(); ++at) {
        if (byte(0) < 0x7F)
            continue;
        if (byte(0) == 0x7F)
            escape(1, 0x7F);
        else if (byte(0) == 0xC2 && byte(1) <= 0x9F)
            escape(2, byte(1));
        else if (byte(0) == 0xE2 && byte(1) == 0x80 && (byte(2) & 0xFEU) == 0xA8)
            escape(3, 0x2000U + (byte(2) & 0x3FU));
    }
}

// \param append  appends one of the elements
template <class Elements, class Append>
void appendElements(std::string& text, const Elements& elements, std::size_t depth,
                    const Append& append) {
    const std::string lineBreak = '\n' + std::string(2 * depth, ' ');
    bool isFirst = true;
    for (const auto& element : elements) {
        text += isFirst ? "" : ",";
        text += lineBreak + "  ";
        append(element);
        isFirst = false;
    }
    text += lineBreak;
}

} // namespace

void appendIndentedJson(std::string& text, const json::value& value, std::size_t depth) {
    const json::object* object = value.if_object();
    const json::array* array = value.if_array();
    if (object && !object->empty()) {
        text += '{';
        appendElements(text, *object, depth, [&](const json::key_value_pair& member) {
            appendEscaped(text, json::serialize(member.key()));
            text += ": ";
            appendIndentedJson(text, member.value(), depth + 1);
        });
        text += '}';
    } else if (array && !array->empty()) {
        text += '[';
        appendElements(text, *array, depth, [&](const json::value& element) {
            appendIndentedJson(text, element, depth + 1);
        });
        text += ']';
    } else {
        appendEscaped(text, json::serialize(value));
    }
}

std::string toIndentedJson(const json::value& document) {
    std::string text;
    appendIndentedJson(text, document, 0);
    text += '\n';
    return text;
}

std::string toJsonLine(const json::value& document) {
    std::string text;
    appendEscaped(text, json::serialize(document));
    text += '\n';
    return text;
}

} // namespace refdoc
