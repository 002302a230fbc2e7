#pragma once

#include "docparser/parsing/StringParsingType.hpp"
#include "platform/i18n/Converter.hpp"

#include <string>
#include <string_view>

namespace reference::docparser {

/// The application's converters to UTF-16, and the choice between them.
class StringConverters {
public:
    using Converter = fl::i18n::converter<char16_t, char>;

    /// \param ascii  widens each byte to the code unit of the same value
    /// \param utf8   decodes UTF-8
    /// Both converters must outlive this object.
    StringConverters(const Converter& ascii, const Converter& utf8) noexcept
        : ascii_(ascii), utf8_(utf8) {}

    /// Converts a string with the ASCII converter if the type is Ascii, or if it is Utf8 and every
    /// byte is in 0x01..0x7E; otherwise with the UTF-8 converter. Most strings need no decoding,
    /// and widening is faster.
    /// \throws whatever the converter throws
    std::u16string convert(std::string_view bytes, StringParsingType type) const;

private:
    const Converter& ascii_;
    const Converter& utf8_;
};

} // namespace reference::docparser
