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

bool isPlain(char16_t unit) noexcept {
    return unit < 0x80 && !isEscaped(unit);
}

} // namespace

std::size_t sizeInJson(char16_t unit) noexcept {
    if (isEscaped(unit))
        return 6;
    return unit < 0x80 ? 1 : 3;
}

void appendJson(std::u16string_view characters, std::string& json) {
    const auto rest = std::ranges::find_if_not(characters, isPlain);
    const std::size_t start = json.size();
    json.resize(start + static_cast<std::size_t>(rest - characters.begin()));
    std::transform(characters.begin(), rest, json.begin() + static_cast<std::ptrdiff_t>(start),
                   [](char16_t unit) { return static_cast<char>(unit); });
    characters = {rest, characters.end()};
    if (characters.empty())
        return;
    if (std::ranges::any_of(characters, isEscaped)) {
        const std::string line = toJsonLine(boost::json::value(fl::i18n::to_string(characters)));
        json.append(line, 1, line.size() - 3); // without the quotation marks and the line feed
    } else {
        json += fl::i18n::to_string(characters);
    }
}

} // namespace refdoc::site
