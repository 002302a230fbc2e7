// Converts arbitrary bytes as UTF-8 and as UTF-16 with the library and with ICU.

#include "fuzz/support/Require.hpp"
#include "fuzz/support/Target.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <cstring>
#include <stdexcept>
#include <string>

namespace {

using docparser_fuzz::require;

std::u16string decodedByIcu(const std::string& bytes) {
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(bytes);
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

bool isWellFormedByIcu(const std::string& bytes) {
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, nullptr, bytes.data(), static_cast<std::int32_t>(bytes.size()),
                  &error);
    return error != U_INVALID_CHAR_FOUND;
}

std::string encodedByIcu(const std::u16string& text, bool& isWellFormed) {
    std::string bytes(3 * text.size() + 1, '\0');
    std::int32_t length = 0;
    std::int32_t replaced = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strToUTF8WithSub(bytes.data(), static_cast<std::int32_t>(bytes.size()), &length, text.data(),
                       static_cast<std::int32_t>(text.size()), 0xFFFD, &replaced, &error);
    require(U_SUCCESS(error), "ICU encodes any text with replacements");
    isWellFormed = replaced == 0;
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

// Returns whether the converter accepts the bytes; if so, requires the expected result.
template <class Converter>
bool isConverted(const Converter& converter, const std::string& bytes,
                 const std::u16string& expected) {
    try {
        require(converter.convert(bytes.data(), bytes.size()) == expected,
                "a strict converter decodes as a lenient one");
        return true;
    } catch (const std::range_error&) {
        return false;
    }
}

void checkUtf8(const std::string& bytes) {
    const std::u16string decoded = fl::i18n::to_ustring(bytes);
    require(decoded == decodedByIcu(bytes), "UTF-8 is decoded as by ICU");
    const fl::i18n::codecvt_string_to_ustring lenient("utf8", true);
    require(lenient.convert(bytes.data(), bytes.size()) == decoded, "all decoders agree");

    const bool isWellFormed = isWellFormedByIcu(bytes);
    require(platform::isWellFormedUtf8(bytes) == isWellFormed,
            "the same UTF-8 is well-formed as for ICU");
    const fl::i18n::codecvt_string_to_ustring strict("utf8", false);
    require(isConverted(strict, bytes, decoded) == isWellFormed,
            "a strict decoder rejects only ill-formed strings");
    require(platform::isWellFormedUtf16(decoded), "decoded strings are well-formed");
    if (isWellFormed)
        require(fl::i18n::to_string(decoded) == bytes, "well-formed text comes back the same");
}

void checkAscii(const std::string& bytes) {
    std::u16string widened;
    bool isAscii = true;
    for (const char byte : bytes) {
        widened += static_cast<unsigned char>(byte);
        isAscii = isAscii && static_cast<unsigned char>(byte) < 0x80;
    }
    const fl::i18n::codecvt_ascii_to_ustring lenient(false);
    require(lenient.convert(bytes.data(), bytes.size()) == widened, "bytes are widened");
    const fl::i18n::codecvt_ascii_to_ustring strict(true);
    require(isConverted(strict, bytes, widened) == isAscii, "a strict widener accepts only ASCII");
}

void checkUtf16(const std::u16string& text) {
    bool isWellFormed = false;
    const std::string expected = encodedByIcu(text, isWellFormed);
    const std::string encoded = fl::i18n::to_string(text);
    require(encoded == expected, "UTF-16 is encoded as by ICU");
    require(platform::isWellFormedUtf16(text) == isWellFormed,
            "the same UTF-16 is well-formed as for ICU");
    require(platform::isWellFormedUtf8(encoded), "encoded strings are well-formed");
    if (isWellFormed)
        require(fl::i18n::to_ustring(encoded) == text, "well-formed text comes back the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    // A copy of exactly this length, so that reading past its end is detected.
    const std::string text(bytes, bytes + size);
    checkUtf8(text);
    checkAscii(text);
    std::u16string units(size / 2, u'\0');
    if (!units.empty())
        std::memcpy(units.data(), bytes, 2 * units.size());
    checkUtf16(units);
    return 0;
}
