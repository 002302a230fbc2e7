#include "platform/unicode/Transcoding.hpp"

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

} // namespace
} // namespace platform
