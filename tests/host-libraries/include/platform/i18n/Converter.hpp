#pragma once

#include <cstddef>
#include <string>

namespace fl::i18n {

template <class To, class From>
class converter {
public:
    virtual ~converter() = default;
    virtual std::basic_string<To> convert(const From* text, std::size_t length) const = 0;
};

/// Decodes UTF-8. U+FFFD replaces ill-formed sequences.
class codecvt_string_to_ustring : public converter<char16_t, char> {
public:
    codecvt_string_to_ustring(const std::string& encoding, bool replaceIllFormed);
    std::u16string convert(const char* text, std::size_t length) const override;
};

/// Widens each byte to the code unit of the same value.
class codecvt_ascii_to_ustring : public converter<char16_t, char> {
public:
    explicit codecvt_ascii_to_ustring(bool strict);
    std::u16string convert(const char* text, std::size_t length) const override;
};

/// Encodes UTF-16 as UTF-8. U+FFFD replaces unpaired surrogates.
std::string to_string(const std::u16string& text);

} // namespace fl::i18n
