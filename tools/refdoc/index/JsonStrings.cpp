#include "tools/refdoc/index/JsonStrings.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/json/JsonText.hpp"

#include <boost/json/value.hpp>

#include <algorithm>

namespace refdoc::site {

namespace {

bool isEscaped(char16_t unit) noexcept {
    return unit < 0x20 || unit == u'"' || unit == u'\\' || (unit >= 0x7F && unit < 0xA0) ||
           unit == u'\u2028' || unit == u'\u2029';
}

} // namespace

std::size_t sizeInJson(char16_t unit) noexcept {
    if (isEscaped(unit))
        return 6;
    return unit < 0x80 ? 1 : 3;
}

void appendJson(std::u16string_view characters, std::string& json) {
    if (std::ranges::any_of(characters, isEscaped)) {
        const std::string line = toJsonLine(boost::json::value(fl::i18n::to_string(characters)));
        json.append(line, 1, line.size() - 3); // without the quotation marks and the line feed
    } else if (std::ranges::all_of(characters, [](char16_t unit) { return unit < 0x80; })) {
        for (const char16_t unit : characters)
            json += static_cast<char>(unit);
    } else {
        json += fl::i18n::to_string(characters);
    }
}

} // namespace refdoc::site
