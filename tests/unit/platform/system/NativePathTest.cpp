#include "platform/system/NativePath.hpp"

#include "tests/support/NativeText.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <system_error>

namespace platform {
namespace {

using docparser_tests::portable;
using std::u16string;

struct JoinCase {
    const char16_t* folder;
    const char16_t* component;
    u16string joined;
};

TEST(NativePathTest, JoinsWithOneSeparatorUnlessTheFolderEndsWithOne) {
    const u16string separator(1, kPathSeparator);
    const JoinCase cases[] = {
        {u"a", u"b", u"a" + separator + u"b"},
        {u"a/", u"b", u"a/b"},
        {u"a//", u"b", u"a//b"},
        {u"a", u"/b", u"a" + separator + u"/b"},
        {u"a", u"..", u"a" + separator + u".."},
        {u"a", u"", u"a" + separator},
        {u"a/", u"", u"a/"},
        {u"", u"b", separator + u"b"},
        {u"/", u"b", u"/b"},
        {u"a", u"b/c/", u"a" + separator + u"b/c/"},
    };
    for (const JoinCase& one : cases)
        EXPECT_EQ(joinPath(one.folder, one.component), one.joined);
}

TEST(NativePathTest, ConvertsToTheNativeFormAndBack) {
    for (const u16string text : {u"", u"/a/b.json", u"a//b/", u"\u00e9t\u00e9/\u6771\u4eac",
                                 u"\U0001F333/\U0010FFFF", u"\uFEFFa", u"line\nfeed \"quote\""}) {
        const NativePath native = toNativePath(text);
        EXPECT_EQ(portable(fromNativePath(native)), text) << native;
        EXPECT_EQ(portable(std::filesystem::path(native).u16string()), text) << native;
    }
}

void expectRefused(const u16string& text, std::errc reason) {
    try {
        const NativePath native = toNativePath(text);
        ADD_FAILURE() << native << " was returned";
    } catch (const std::system_error& refusal) {
        EXPECT_EQ(refusal.code(), std::make_error_code(reason)) << refusal.what();
    }
}

TEST(NativePathTest, RefusesNul) {
    for (const u16string& text :
         {u16string(1, u'\0'), u"a" + u16string(1, u'\0') + u"b", u"a" + u16string(1, u'\0'),
          // NUL is reported first.
          u16string{0xD800, u'\0'}})
        expectRefused(text, std::errc::invalid_argument);
}

#ifdef _WIN32
TEST(NativePathTest, KeepsUnpairedSurrogatesWherePathsAreUtf16) {
    for (const u16string& text :
         {u16string{0xD800}, u16string{u'a', 0xDC00}, u16string{0xDFFF, 0xD800}}) {
        const NativePath native = toNativePath(text);
        EXPECT_TRUE(
            std::ranges::equal(native, text, {}, [](wchar_t unit) { return char16_t(unit); }));
        EXPECT_EQ(fromNativePath(native), text);
    }
}
#else
TEST(NativePathTest, RefusesUnpairedSurrogatesWherePathsAreBytes) {
    for (const u16string& text :
         {u16string{0xD800}, u16string{0xDBFF, u'a'}, u16string{u'a', 0xDC00},
          u16string{0xDFFF, 0xD800}, u16string{0xD800, 0xD800, 0xDC00}})
        expectRefused(text, std::errc::illegal_byte_sequence);
}

TEST(NativePathTest, ReplacesIllFormedPartsOfASystemPath) {
    EXPECT_EQ(fromNativePath("/a\xE3"
                             "A\xFF/b"),
              u"/a\uFFFDA\uFFFD/b");
}
#endif

} // namespace
} // namespace platform
