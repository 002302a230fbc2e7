#include "platform/unicode/Transcoding.hpp"

#include "platform/unicode/Utf8.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using std::string;
using std::u16string;

struct Utf16Case {
    u16string units;
    const char* bytes;
    bool isWellFormed;
};

TEST(TranscodingTest, ReplacesUnpairedSurrogates) {
    const Utf16Case cases[] = {
        {u"", "", true},
        {u"\u007F\u0080", "\x7F\xC2\x80", true},
        {u"\u07FF\u0800", "\xDF\xBF\xE0\xA0\x80", true},
        {{0xD7FF, 0xE000}, "\xED\x9F\xBF\xEE\x80\x80", true},
        {u"\uFFFF\U00010000", "\xEF\xBF\xBF\xF0\x90\x80\x80", true},
        {u"\U0010FFFF", "\xF4\x8F\xBF\xBF", true},
        {{0xD800}, "\xEF\xBF\xBD", false},
        {{0xDFFF}, "\xEF\xBF\xBD", false},
        {{0xD800, u'a'},
         "\xEF\xBF\xBD"
         "a",
         false},
        {{u'a', 0xDC00}, "a\xEF\xBF\xBD", false},
        {{0xDC00, 0xD800}, "\xEF\xBF\xBD\xEF\xBF\xBD", false},
        {{0xD800, 0xD800, 0xDC00}, "\xEF\xBF\xBD\xF0\x90\x80\x80", false},
        {{0xD800, 0xDC00, 0xDC00}, "\xF0\x90\x80\x80\xEF\xBF\xBD", false},
    };
    for (const Utf16Case& one : cases) {
        EXPECT_EQ(toUtf8(one.units), one.bytes);
        EXPECT_EQ(isWellFormedUtf16(one.units), one.isWellFormed) << toUtf8(one.units);
    }
    EXPECT_EQ(toUtf8(u16string(1, u'\0')), string(1, '\0'));
}

TEST(TranscodingTest, DetectsIllFormedUtf8AnywhereInAString) {
    EXPECT_TRUE(isWellFormedUtf8(std::string_view()));
    EXPECT_TRUE(isWellFormedUtf8(std::string_view("a\0\xF4\x8F\xBF\xBF", 6)));
    for (const char* bytes : {"\x80", "a\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        EXPECT_FALSE(isWellFormedUtf8(std::string_view(bytes)));
}

TEST(TranscodingTest, DetectsIllFormedUtf8AtEveryPositionOfALongString) {
    const string wellFormed[] = {"\xC3\xA9", "\xE6\xA8\xB9", "\xF0\x9F\x8C\xB3"};
    const string illFormed[] = {
        "\x80",     "\xC3",         "\xC0\xAF",         "\xE0\x9F\xBF",     "\xED\xA0\x80",
        "\xE3\x81", "\xF0\x9F\x8C", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
        "\xFF"};
    for (std::size_t before = 0; before <= 200; ++before) {
        for (const std::size_t after : {0U, 1U, 63U, 64U, 130U}) {
            const auto enclose = [&](const string& bytes) {
                return string(before, 'x') + bytes + string(after, 'x');
            };
            for (const string& bytes : wellFormed)
                EXPECT_TRUE(isWellFormedUtf8(enclose(bytes))) << before << ' ' << after;
            for (const string& bytes : illFormed)
                EXPECT_FALSE(isWellFormedUtf8(enclose(bytes))) << before << ' ' << after;
        }
    }
}

bool isDecodedWithoutReplacement(std::string_view text) {
    while (!text.empty()) {
        const DecodedSequence sequence = decodeUtf8(text);
        if (!sequence.isWellFormed)
            return false;
        text.remove_prefix(sequence.length);
    }
    return true;
}

TEST(TranscodingTest, AgreesWithTheDecoderOnAnyFourBytesAcrossTheEndOfABlock) {
    // The first and last bytes of each class.
    const std::string_view ends(
        "\x00\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE"
        "\xEF\xF0\xF1\xF3\xF4\xF5\xFF",
        24);
    string text(130, 'x');
    for (const char first : ends) {
        for (const char second : ends) {
            for (const char third : ends) {
                for (const char fourth : ends) {
                    const string bytes = {first, second, third, fourth};
                    text.replace(62, 4, bytes);
                    ASSERT_EQ(isWellFormedUtf8(text), isDecodedWithoutReplacement(bytes + 'x'))
                        << testing::PrintToString(bytes);
                }
            }
        }
    }
}

} // namespace
} // namespace platform
