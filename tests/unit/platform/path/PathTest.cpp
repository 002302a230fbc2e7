#include "platform/path/Path.hpp"

#include "platform/i18n/Converter.hpp"

#include <gtest/gtest.h>

#include <string>
#include <system_error>

namespace fl::filesystem {

namespace {

using std::u16string;

struct NameCase {
    const char16_t* path;
    const char16_t* filename;
    const char16_t* extension;
    const char16_t* stem;
};

TEST(PathTest, SplitsOffNameExtensionAndStem) {
    constexpr NameCase cases[] = {
        {u"", u"", u"", u""},
        {u"P", u"P", u"", u"P"},
        {u"P.", u"P.", u"", u"P"},
        {u"P.json", u"P.json", u"json", u"P"},
        {u"P.JSON", u"P.JSON", u"JSON", u"P"},
        {u"P_ja.json", u"P_ja.json", u"json", u"P_ja"},
        {u"a.b.json", u"a.b.json", u"json", u"a.b"},
        {u"archive.tar.zip", u"archive.tar.zip", u"zip", u"archive.tar"},
        {u"P.json.", u"P.json.", u"", u"P.json"},
        {u".json", u".json", u"json", u""},
        {u"..json", u"..json", u"json", u"."},
        {u".", u".", u"", u"."},
        {u"..", u"..", u"", u".."},
        {u"...", u"...", u"", u".."},
        {u"a/..", u"..", u"", u".."},
        {u"a/b/P.json", u"P.json", u"json", u"P"},
        {u"a.b/c", u"c", u"", u"c"},
        {u"a.b/", u"", u"", u""},
        {u"/", u"", u"", u""},
        {u"/a", u"a", u"", u"a"},
        {u"a//b.zip", u"b.zip", u"zip", u"b"},
        {u"a\\b.zip", PATHNAME_SEPARATOR == u'/' ? u"a\\b.zip" : u"b.zip", u"zip",
         PATHNAME_SEPARATOR == u'/' ? u"a\\b" : u"b"},
        {u"\u6771/\u4eac.\u00e9t\u00e9", u"\u4eac.\u00e9t\u00e9", u"\u00e9t\u00e9", u"\u4eac"},
        {u"\U0001F333.json", u"\U0001F333.json", u"json", u"\U0001F333"},
    };
    for (const NameCase& one : cases) {
        EXPECT_EQ(path(one.path).filename().string(), one.filename);
        EXPECT_EQ(extract_extension(one.path), one.extension) << i18n::to_string(one.path);
        EXPECT_EQ(extract_stem(one.path), one.stem);
    }
}

struct ParentCase {
    const char16_t* path;
    const char16_t* parent;
};

TEST(PathTest, RemovesTheLastComponentAndTheSeparatorsAroundIt) {
    constexpr ParentCase cases[] = {
        {u"a/b/c", u"a/b"},    {u"a/b/c/", u"a/b"},  {u"a/b/c///", u"a/b"},
        {u"a//b", u"a"},       {u"/a/b", u"/a"},     {u"/a", u""},
        {u"/", u""},           {u"//", u""},         {u"a", u""},
        {u"a/", u""},          {u"", u""},           {u"a/.", u"a"},
        {u"a/..", u"a"},       {u"a b/c.d", u"a b"}, {u"\u6771/\u4eac", u"\u6771"},
        {u"//a//b//", u"//a"},
    };
    for (const ParentCase& one : cases)
        EXPECT_EQ(remove_filename(one.path).string(), one.parent) << i18n::to_string(one.path);
}

TEST(PathTest, RemovingThreeAddedComponentsLeavesTheFolder) {
    const path folder = u"/srv/packages";
    const path full = folder / u"help" / u"docCatalog" / u"referenceapi";
    EXPECT_EQ(remove_filename(remove_filename(remove_filename(full))).string(), folder.string());
}

struct JoinCase {
    const char16_t* folder;
    const char16_t* component;
    const char16_t* joined;
};

TEST(PathTest, JoinsWithOneSeparatorUnlessTheFolderEndsWithOne) {
    constexpr JoinCase cases[] = {
        {u"a", u"b", u"a/b"},       {u"a/", u"b", u"a/b"},  {u"a//", u"b", u"a//b"},
        {u"a", u"/b", u"a//b"},     {u"a", u"..", u"a/.."}, {u"a", u"", u"a/"},
        {u"a/", u"", u"a/"},        {u"", u"b", u"/b"},     {u"/", u"b", u"/b"},
        {u"a", u"b/c/", u"a/b/c/"},
    };
    for (const JoinCase& one : cases) {
        u16string expected = one.joined;
        if constexpr (PATHNAME_SEPARATOR != u'/')
            expected = make_native_form(expected).string();
        EXPECT_EQ(make_native_form(path(one.folder) / one.component).string(), expected);
    }
}

TEST(PathTest, JoiningLeavesTheFolderUnchanged) {
    const path folder = u"a";
    EXPECT_EQ((folder / u"b").filename().string(), u"b");
    EXPECT_EQ(folder.string(), u"a");
}

TEST(PathTest, IsEmptyOnlyForTheEmptyString) {
    EXPECT_TRUE(path().empty());
    EXPECT_TRUE(path(u"").empty());
    EXPECT_FALSE(path(u".").empty());
}

TEST(PathTest, NativeFormHasTheSeparatorsOfTheSystem) {
    EXPECT_EQ(make_native_form(u"a/b").string(), u16string(u"a") + PATHNAME_SEPARATOR + u"b");
    EXPECT_EQ(make_native_form(u"a", /*isName=*/true).string(), u"a");
}

TEST(PathTest, ConvertsToTheFormOfTheSystem) {
    EXPECT_EQ(make_native_access_form_with_cleanup_i18n(u"/\u6771/P.json"),
              std::filesystem::path(u"/\u6771/P.json").make_preferred().native());
    EXPECT_THROW(make_native_access_form_with_cleanup_i18n(u16string{u'a', u'\0'}),
                 std::system_error);
}

} // namespace

} // namespace fl::filesystem
