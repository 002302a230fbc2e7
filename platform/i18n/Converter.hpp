#pragma once

#include "platform/Export.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace fl::i18n {

/// Converts strings from one character type to another. Any number of threads may share one.
template <class To, class From>
class converter {
public:
    virtual ~converter() = default;

    /// Converts a string.
    /// \param text    the first code unit; may be null if `length` is 0
    /// \param length  number of code units; NUL is an ordinary one
    virtual std::basic_string<To> convert(const From* text, std::size_t length) const = 0;

protected:
    converter() = default;
    converter(const converter&) = default;
    converter& operator=(const converter&) = default;
};

/// Decodes the bytes of a named encoding to UTF-16.
class DOCPARSER_PLATFORM_EXPORT codecvt_string_to_ustring final : public converter<char16_t, char> {
public:
    /// \param encoding          "utf8" or "utf-8"; no other encoding is supported
    /// \param replaceIllFormed  true: each maximal ill-formed sequence becomes one U+FFFD;
    ///                          false: convert() throws std::range_error for an ill-formed string
    /// \throws std::invalid_argument  the encoding is not supported
    codecvt_string_to_ustring(std::string_view encoding, bool replaceIllFormed);

    std::u16string convert(const char* text, std::size_t length) const override;

private:
    bool replaceIllFormed_;
};

/// Widens each byte to the code unit of the same value.
class DOCPARSER_PLATFORM_EXPORT codecvt_ascii_to_ustring final : public converter<char16_t, char> {
public:
    /// \param strict  false: every byte is widened, 0xE9 to U+00E9; true: convert() throws
    ///                std::range_error for a byte above 0x7F
    explicit codecvt_ascii_to_ustring(bool strict) : strict_(strict) {}

    std::u16string convert(const char* text, std::size_t length) const override;

private:
    bool strict_;
};

/// Converts UTF-16 to UTF-8; each unpaired surrogate becomes one U+FFFD.
DOCPARSER_PLATFORM_EXPORT std::string to_string(std::u16string_view text);

/// Converts UTF-8 to UTF-16; each maximal ill-formed sequence becomes one U+FFFD.
DOCPARSER_PLATFORM_EXPORT std::u16string to_ustring(std::string_view text);

} // namespace fl::i18n
