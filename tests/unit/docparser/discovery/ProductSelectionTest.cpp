#include "docparser/discovery/ProductSelection.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::docparser;

TEST(IsValidFilename, AcceptsOnlyTheExtensionsJsonAndZipInLowerCase) {
    const std::vector<std::pair<const char16_t*, bool>> names = {{u"P.json", true},
                                                                 {u"P_ja.json", true},
                                                                 {u"P.zip", true},
                                                                 {u"P.JSON", false},
                                                                 {u"P.Json", false},
                                                                 {u"P.Zip", false},
                                                                 {u"P.ZIP", false},
                                                                 {u"P.json.bak", false},
                                                                 {u"P", false},
                                                                 {u".", false},
                                                                 {u"..", false},
                                                                 {u"", false},
                                                                 {u"json", false},
                                                                 {u"zip", false},
                                                                 {u"P.", false},
                                                                 {u"P.json ", false},
                                                                 {u"P. json", false},
                                                                 {u"P.jsonx", false},
                                                                 {u"P.xjson", false},
                                                                 {u"P.zi", false},
                                                                 {u"P.j\u017Fon", false},
                                                                 {u"folder/P.zip", true},
                                                                 {u"folder.zip/P", false},
                                                                 {u"folder.json/P.bak", false},
                                                                 {u"P..json", true},
                                                                 {u"archive.tar.zip", true},
                                                                 {u"\u00E9\u65E5.json", true}};
    for (const auto& [name, isValid] : names)
        EXPECT_EQ(isValidFilename(name), isValid)
            << std::filesystem::path(std::u16string(name)).string();
}

TEST(IsValidFilename, AcceptsDotJsonAloneBecauseThePathLibraryCallsJsonItsExtension) {
    EXPECT_EQ(fl::filesystem::extract_extension(u".json"), u"json");
    EXPECT_TRUE(isValidFilename(u".json"));
}

TEST(IsValidFilename, DoesNotLookAtTheDisk) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "x.json");
    EXPECT_TRUE(isValidFilename(folder.u16() + u"/x.json"));
    EXPECT_TRUE(isValidFilename(folder.u16() + u"/missing.json"));
}

// The decision as a string: "read", "read as translation", "other language" or "other name".
std::string outcomeOf(const ProductSelection& selection) {
    if (selection.skipped)
        return *selection.skipped == Fate::SkippedLanguage ? "other language" : "other name";
    return selection.isNonEnglishLocale ? "read as translation" : "read";
}

TEST(SelectProduct, DecidesByTheEndOfTheStem) {
    struct Case {
        std::u16string stem;
        std::vector<std::u16string> suffixes;
        std::u16string current;
        std::string expected;
    };
    const std::vector<Case> cases = {
        {u"P", {u"_ja"}, u"_ja", "read"},
        {u"P_ja", {u"_ja"}, u"_ja", "read as translation"},
        {u"P_ja", {u"_de", u"_ja"}, u"_de", "other language"},
        {u"P_ja", {}, u"_ja", "read"},
        {u"P_en", {u"_ja"}, u"_en", "read"},
        {u"P_JA", {u"_ja"}, u"_ja", "read"},
        {u"P_ja_x", {u"_ja"}, u"_ja", "read"},
        {u"ja", {u"_ja"}, u"_ja", "read"}, // shorter than the suffix
        {u"_ja", {u"_ja"}, u"_ja", "read as translation"},
        {u"P_de_ja", {u"_ja", u"_de"}, u"_de", "other language"},
        {u"P", {u""}, u"_ja", "other language"},
        {u"P_ja", {u""}, u"_ja", "read as translation"},
        {u"P", {u""}, u"", "read as translation"},
        {u"P_zh_CN", {u"_CN", u"_zh_CN"}, u"_zh_CN", "read as translation"},
        {u"", {u"_ja"}, u"_ja", "read"},
        {u"", {u""}, u"", "read as translation"}};
    for (const Case& row : cases) {
        const ProductSelection selection =
            selectProduct(row.stem + u".json", row.suffixes, row.current);
        SCOPED_TRACE(testing::PrintToString(row.stem) + " among " +
                     testing::PrintToString(row.suffixes) + " in " +
                     testing::PrintToString(row.current));
        EXPECT_EQ(outcomeOf(selection), row.expected);
        EXPECT_EQ(selection.stem, row.stem);
    }
}

TEST(SelectProduct, PrefersTheGivenLocaleFlagToTheStem) {
    const std::vector<std::u16string> suffixes = {u"_ja"};
    EXPECT_EQ(outcomeOf(selectProduct(u"P_ja.json", suffixes, u"_de", false)), "read");
    EXPECT_EQ(outcomeOf(selectProduct(u"P.json", suffixes, u"_ja", true)), "other language");
    EXPECT_EQ(outcomeOf(selectProduct(u"P_ja.json", {}, u"_ja", true)), "read as translation");
}

TEST(SelectProduct, ChecksTheNameFirst) {
    EXPECT_EQ(outcomeOf(selectProduct(u"P_ja.txt", {u"_ja"}, u"_de")), "other name");
}

} // namespace
} // namespace docparser_tests
