#include "platform/i18n/Converter.hpp"

#include "platform/unicode/Transcoding.hpp"
#include "platform/unicode/Utf16String.hpp"

#include <algorithm>
#include <span>
#include <stdexcept>

namespace fl::i18n {

codecvt_string_to_ustring::codecvt_string_to_ustring(std::string_view encoding,
                                                     bool replaceIllFormed)
    : replaceIllFormed_(replaceIllFormed) {
    if (encoding != "utf8" && encoding != "utf-8")
        throw std::invalid_argument("no converter for the encoding " + std::string(encoding));
}

std::u16string codecvt_string_to_ustring::convert(const char* text, std::size_t length) const {
    const std::string_view bytes(text, length);
    if (!replaceIllFormed_ && !platform::isWellFormedUtf8(bytes))
        throw std::range_error("ill-formed UTF-8");
    return platform::toUtf16(bytes);
}

std::u16string codecvt_ascii_to_ustring::convert(const char* text, std::size_t length) const {
    const std::span bytes(reinterpret_cast<const unsigned char*>(text), length);
    if (strict_ && std::ranges::any_of(bytes, [](unsigned char byte) { return byte > 0x7F; }))
        throw std::range_error("a byte above 0x7F where ASCII was expected");
    return {bytes.begin(), bytes.end()};
}

std::string to_string(std::u16string_view text) {
    return platform::toUtf8(text);
}

std::u16string to_ustring(std::string_view text) {
    return platform::toUtf16(text);
}

} // namespace fl::i18n
