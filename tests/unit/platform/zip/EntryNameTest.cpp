#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

#include <array>

namespace docparser_tests {

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::Pair;

class EntryNameTest : public PackageTest {
protected:
    std::vector<std::u16string> baseNames(const ZipBytes& zip) const {
        std::vector<std::u16string> names;
        for (const auto& leaf : open(zip).leaves())
            names.push_back(leaf.getBaseName());
        return names;
    }
};

/// Decodes CP437 with the converter of the system.
std::u16string fromCp437(std::string bytes) {
#ifdef _WIN32
    std::wstring wide(bytes.size(), L'\0');
    EXPECT_EQ(::MultiByteToWideChar(437, 0, bytes.data(), static_cast<int>(bytes.size()),
                                    wide.data(), static_cast<int>(wide.size())),
              static_cast<int>(bytes.size()));
    return {wide.begin(), wide.end()};
#else
    const iconv_t converter = iconv_open("UTF-16LE", "CP437");
    EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1));
    std::u16string text(bytes.size(), u'\0');
    char* input = bytes.data();
    std::size_t inputLeft = bytes.size();
    char* output = reinterpret_cast<char*>(text.data());
    std::size_t outputLeft = text.size() * sizeof(char16_t);
    EXPECT_EQ(iconv(converter, &input, &inputLeft, &output, &outputLeft), 0U);
    iconv_close(converter);
    text.resize(text.size() - outputLeft / sizeof(char16_t));
    return text;
#endif
}

TEST_F(EntryNameTest, FoldersAndPackagingMetadataAreNotLeaves) {
    const OpenPackage package = open({.entries = {{.name = "[Content_Types].xml"},
                                                  {.name = "_rels/"},
                                                  {.name = "_rels/.rels"},
                                                  {.name = "en/"},
                                                  {.name = "en/_rels/P.json.rels"},
                                                  {.name = "en/P.json"},
                                                  {.name = "en\\_rels\\Q.json.rels"},
                                                  {.name = "folder\\"},
                                                  {.name = "/"}}});
    EXPECT_THAT(package.leafNames(), ElementsAre(u"en/P.json"));
}

TEST_F(EntryNameTest, NamesThatOnlyResemblePackagingMetadataAreLeaves) {
    ZipBytes zip;
    std::vector<std::u16string> names;
    for (const char* name :
         {"en/[Content_Types].xml", "[content_types].xml", ".rels", "_rels", "_rels/P.json",
          "_rels.rels", "rels/.rels", "x_rels/.rels", "_rels/x/.rels", "_rels/.RELS"}) {
        zip.entries.push_back({.name = name});
        names.emplace_back(name, name + std::string_view(name).size());
    }
    EXPECT_EQ(open(zip).leafNames(), names);
}

TEST_F(EntryNameTest, BaseNameFollowsTheLastSeparator) {
    EXPECT_THAT(baseNames({.entries = {{.name = "P.json"},
                                       {.name = "a/b/Q.json"},
                                       {.name = "a\\b\\R.json"},
                                       {.name = "a\\b/S.json"},
                                       {.name = "a/b\\T.json"},
                                       {.name = "/etc/U.json"},
                                       {.name = "../../V.json"},
                                       {.name = "C:\\W.json"},
                                       {.name = ".."},
                                       {.name = "a//X.json"},
                                       {.name = ""}}}),
                ElementsAre(u"P.json", u"Q.json", u"R.json", u"S.json", u"T.json", u"U.json",
                            u"V.json", u"W.json", u"..", u"X.json", u""));
}

TEST_F(EntryNameTest, DecodesUtf8WithAndWithoutTheFlag) {
    const std::string name = "\xE6\xA3\x9A/\xF0\x9F\x8D\x8F\xC3\xA9.json";
    EXPECT_THAT(baseNames({.entries = {{.name = name, .flags = kUtf8Flag}, {.name = name}}}),
                ElementsAre(u"\U0001F34F\u00E9.json", u"\U0001F34F\u00E9.json"));
}

TEST_F(EntryNameTest, DecodesUnflaggedNamesThatAreNotUtf8AsCp437) {
    std::string bytes = "x";
    for (int value = 0x80; value < 0x100; ++value)
        bytes += static_cast<char>(value);
    EXPECT_THAT(open({.entries = {{.name = bytes}, {.name = "caf\x82.json"}}}).leafNames(),
                ElementsAre(fromCp437(bytes), u"caf\u00E9.json"));
}

TEST_F(EntryNameTest, DecodesUnflaggedForbiddenUtf8AsCp437) {
    // A surrogate and an overlong form, which UTF-8 does not allow.
    EXPECT_THAT(open({.entries = {{.name = "a\xED\xA0\x80"}, {.name = "b\xC0\x80"}}}).leafNames(),
                ElementsAre(fromCp437("a\xED\xA0\x80"), fromCp437("b\xC0\x80")));
}

TEST_F(EntryNameTest, ReplacesIllFormedSequencesOfAFlaggedNameAndListsAllEntries) {
    for (const bool isZip64 : {false, true}) {
        OpenPackage package = open(
            {.entries = {{.name = "caf\x82.json", .content = "unflagged"},
                         {.name = "a\xE3\x41.json", .content = "ill-formed", .flags = kUtf8Flag},
                         {.name = "\xC3\xA9.json", .content = "good", .flags = kUtf8Flag},
                         {.name = "\xFF", .content = "last", .flags = kUtf8Flag}},
             .comment = "PK\5\6 is no end",
             .isZip64 = isZip64});
        EXPECT_THAT(package.contents(),
                    ElementsAre(Pair(u"caf\u00E9.json", "unflagged"),
                                Pair(u"a\uFFFD\u0041.json", "ill-formed"),
                                Pair(u"\u00E9.json", "good"), Pair(u"\uFFFD", "last")));
    }
}

TEST_F(EntryNameTest, ReplacesIllFormedSequencesInALongDirectory) {
    ZipBytes zip;
    for (int i = 0; i < 3000; ++i)
        zip.entries.push_back({.name = "entry number " + std::to_string(i)});
    zip.entries[1000] = {.name = "\x80.json", .content = "text", .flags = kUtf8Flag};
    OpenPackage package = open(zip);
    const auto leaves = package.leaves();
    ASSERT_EQ(leaves.size(), 3000U);
    EXPECT_EQ(leaves[1000].getName(), u"\uFFFD.json");
    EXPECT_EQ(package.read(leaves[1000]), "text");
    EXPECT_EQ(leaves[2999].getName(), u"entry number 2999");
}

TEST_F(EntryNameTest, ReplacesForbiddenUtf8InFlaggedNames) {
    EXPECT_THAT(open({.entries = {{.name = "a\xED\xA0\x80", .flags = kUtf8Flag},
                                  {.name = "b\xC0\x80", .flags = kUtf8Flag}}})
                    .leafNames(),
                ElementsAre(u"a\uFFFD\uFFFD\uFFFD", u"b\uFFFD\uFFFD"));
}

TEST_F(EntryNameTest, KeepsControlCharactersOfFlaggedNames) {
    EXPECT_THAT(open({.entries = {{.name = "a\x01\xC3\xA9", .flags = kUtf8Flag}}}).leafNames(),
                ElementsAre(u"a\u0001\u00E9"));
}

TEST_F(EntryNameTest, IllFormedFlaggedCommentHasNoEffect) {
    OpenPackage package = open({.entries = {{.name = "\xC3\xA9.json",
                                             .content = "text",
                                             .flags = kUtf8Flag,
                                             .comment = "\xFF\xFE"}}});
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"\u00E9.json", "text")));
}

TEST_F(EntryNameTest, StillRefusesADamagedDirectoryWithIllFormedNames) {
    const ZipEntryBytes entry{.name = "\xFF.json", .flags = kUtf8Flag};
    EXPECT_THROW(open({.entries = {entry}, .directorySize = 40}), opc::PackageError);
    EXPECT_THROW(open({.entries = {entry}, .directoryOffset = 3}), opc::PackageError);
    EXPECT_THROW(open({.entries = {entry}, .isZip64 = true, .directoryOffset = 1ULL << 63}),
                 opc::PackageError);
    EXPECT_THROW(open({.entries = {entry, {.name = "b", .extra = "abc"}}}), opc::PackageError);
}

TEST_F(EntryNameTest, NulInANameBecomesASpace) {
    EXPECT_THAT(open({.entries = {{.name = "a\0b.json"s}}}).leafNames(), ElementsAre(u"a b.json"));
}

TEST_F(EntryNameTest, UnicodePathFieldReplacesAnUnflaggedName) {
    const std::string field = "\1" + littleEndian(crcOf("x.json"), 4) + "\xC3\xA9.json";
    EXPECT_THAT(
        open({.entries = {{.name = "x.json", .extra = extraField(0x7075, field)}}}).leafNames(),
        ElementsAre(u"\u00E9.json"));
}

TEST_F(EntryNameTest, ListsTheLongestNameWhole) {
    const std::string name(0xFFFF, 'n');
    EXPECT_THAT(open({.entries = {{.name = name}}}).leafNames(),
                ElementsAre(std::u16string(0xFFFF, u'n')));
}

} // namespace

} // namespace docparser_tests
