#include "platform/i18n/Converter.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

namespace fl::i18n {

namespace {

using std::string;
using std::u16string;

// Lengths around the size of the stack buffer, and one far above it.
constexpr std::size_t kLengths[] = {0, 1, 2, 1023, 1024, 1025, 2048, 100'000};

u16string widen(std::string_view bytes) {
    u16string units;
    for (const char byte : bytes)
        units += static_cast<char16_t>(static_cast<unsigned char>(byte));
    return units;
}

string allBytes() {
    string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

u16string convert(const converter<char16_t, char>& converter, std::string_view bytes) {
    return converter.convert(bytes.data(), bytes.size());
}

TEST(AsciiConverterTest, WidensEveryByteToTheUnitOfTheSameValue) {
    const codecvt_ascii_to_ustring ascii(/*strict=*/false);
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(convert(ascii, string(1, static_cast<char>(byte))),
                  u16string(1, static_cast<char16_t>(byte)));
    EXPECT_EQ(convert(ascii, allBytes()), widen(allBytes()));
}

TEST(AsciiConverterTest, WidensStringsOfAnyLength) {
    const codecvt_ascii_to_ustring ascii(/*strict=*/false);
    for (const std::size_t length : kLengths) {
        string bytes;
        while (bytes.size() < length)
            bytes += allBytes();
        bytes.resize(length);
        EXPECT_EQ(convert(ascii, bytes), widen(bytes)) << length;
    }
}

TEST(AsciiConverterTest, ThrowsForEveryByteAbove7FIfStrict) {
    const codecvt_ascii_to_ustring ascii(/*strict=*/true);
    EXPECT_EQ(convert(ascii, allBytes().substr(0, 128)), widen(allBytes().substr(0, 128)));
    for (int byte = 0x80; byte < 256; ++byte) {
        const string text = string("abc") + static_cast<char>(byte);
        EXPECT_THROW(convert(ascii, text), std::range_error) << byte;
    }
}

TEST(AsciiConverterTest, AcceptsANullPointerWithoutBytes) {
    EXPECT_EQ(codecvt_ascii_to_ustring(false).convert(nullptr, 0), u"");
    EXPECT_EQ(codecvt_ascii_to_ustring(true).convert(nullptr, 0), u"");
}

TEST(Utf8ConverterTest, AcceptsTwoNamesOfOneEncoding) {
    for (const char* name : {"utf8", "utf-8"})
        EXPECT_EQ(convert(codecvt_string_to_ustring(name, true), "caf\xC3\xA9"), u"caf\u00e9");
    for (const char* name : {"", "UTF8", "utf16", "latin1", "utf8 "})
        EXPECT_THROW(codecvt_string_to_ustring(name, true), std::invalid_argument) << name;
}

TEST(Utf8ConverterTest, ReplacesIllFormedSequencesAndContinuesAfterThem) {
    const codecvt_string_to_ustring utf8("utf8", /*replaceIllFormed=*/true);
    EXPECT_EQ(convert(utf8, "\xE3"
                            "A"),
              u"\uFFFDA");
    EXPECT_EQ(convert(utf8, "\xF0\x9F\x8C"), u"\uFFFD");
    EXPECT_EQ(convert(utf8, "\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(convert(utf8, "\xC0\xAF"), u"\uFFFD\uFFFD");
}

TEST(Utf8ConverterTest, ThrowsForIllFormedStringsIfNotReplacing) {
    const codecvt_string_to_ustring utf8("utf8", /*replaceIllFormed=*/false);
    EXPECT_EQ(convert(utf8, "caf\xC3\xA9 \xF0\x9F\x8C\xB3"), u"caf\u00e9 \U0001F333");
    EXPECT_THROW(convert(utf8, "caf\xC3"), std::range_error);
    EXPECT_THROW(convert(utf8, string(5000, 'a') + "\xFF"), std::range_error);
}

TEST(Utf8ConverterTest, KeepsNulDelAndByteOrderMark) {
    const codecvt_string_to_ustring utf8("utf8", true);
    EXPECT_EQ(convert(utf8, std::string_view("\xEF\xBB\xBF"
                                             "a\0\x7F",
                                             6)),
              (u16string{0xFEFF, u'a', u'\0', 0x7F}));
    EXPECT_EQ(utf8.convert(nullptr, 0), u"");
}

TEST(Utf8ConverterTest, DecodesStringsOfAnyLength) {
    const codecvt_string_to_ustring utf8("utf8", true);
    for (const std::size_t length : kLengths) {
        EXPECT_EQ(convert(utf8, string(length, 'a')), u16string(length, u'a'));
        EXPECT_EQ(convert(utf8, string(length, '\xFF')), u16string(length, u'\uFFFD'));
        string trees;
        u16string decoded;
        for (std::size_t i = 0; i < length; ++i) {
            trees += "\xF0\x9F\x8C\xB3";
            decoded += u"\U0001F333";
        }
        EXPECT_EQ(convert(utf8, trees), decoded) << length;
        EXPECT_EQ(to_ustring(trees), decoded) << length;
        EXPECT_EQ(to_string(decoded), trees) << length;
    }
}

TEST(StringConversionTest, ReplacesIllFormedSequences) {
    EXPECT_EQ(to_string(u"caf\u00e9 \U0001F333"), "caf\xC3\xA9 \xF0\x9F\x8C\xB3");
    EXPECT_EQ(to_string(u16string{u'a', 0xD800}), "a\xEF\xBF\xBD");
    EXPECT_EQ(to_ustring("caf\xC3\xA9 \xF0\x9F\x8C\xB3"), u"caf\u00e9 \U0001F333");
    EXPECT_EQ(to_ustring("a\xE3"), u"a\uFFFD");
}

static_assert(std::is_copy_constructible_v<codecvt_string_to_ustring>);
static_assert(std::has_virtual_destructor_v<converter<char16_t, char>>);

} // namespace

} // namespace fl::i18n
