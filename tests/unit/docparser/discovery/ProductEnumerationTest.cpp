#include "docparser/discovery/ProductEnumeration.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tests/support/NativeText.hpp"
#include "tests/support/PosixTest.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::docparser;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Suffixes = std::vector<std::u16string>;

// Matches a product by name, flag and full path.
testing::Matcher<const ProductPathData&> product(const std::u16string& name, bool nonEnglishLocale,
                                                 const std::u16string& fullPath) {
    return testing::AllOf(
        testing::Property("name", &ProductPathData::getName, name),
        testing::Property("translated", &ProductPathData::isNonEnglishLocale, nonEnglishLocale),
        testing::Property("path", &ProductPathData::getFullPath, fullPath));
}

class ProductEnumeration : public testing::Test {
protected:
    void add(const std::vector<std::u16string>& names) {
        for (const std::u16string& name : names)
            folder_.write(name, "");
    }

    std::u16string path(const std::u16string& name) const {
        return folder_.u16() + native(u"/") + name;
    }

    ProductLists find(const Suffixes& suffixes, const std::u16string& current) const {
        return DocResourceParser::getAllProducts(folder_.u16(), suffixes, current);
    }

    TemporaryFolder folder_;
};

// A folder with two products, their translations, and files that are not products.
class TwoProducts : public ProductEnumeration {
protected:
    TwoProducts() {
        add({u"P.json", u"P_ja.json", u"P_de.json", u"Q.zip", u"Q_ja.zip", u"notes.txt",
             u"sub/inner.json"});
    }
};

TEST_F(TwoProducts, ListEnglishAndCurrentFilesOnly) {
    const ProductLists products = find({u"_ja", u"_de"}, u"_ja");
    EXPECT_THAT(products.jsonProducts,
                UnorderedElementsAre(product(u"P", false, path(u"P.json")),
                                     product(u"P_ja", true, path(u"P_ja.json"))));
    EXPECT_THAT(products.zipProducts,
                UnorderedElementsAre(product(u"Q", false, path(u"Q.zip")),
                                     product(u"Q_ja", true, path(u"Q_ja.zip"))));
}

TEST_F(TwoProducts, ListNoTranslationIfEnglishIsCurrent) {
    const ProductLists products = find({u"_ja", u"_de"}, u"_en");
    EXPECT_THAT(products.jsonProducts, UnorderedElementsAre(product(u"P", false, path(u"P.json"))));
    EXPECT_THAT(products.zipProducts, UnorderedElementsAre(product(u"Q", false, path(u"Q.zip"))));
}

TEST_F(TwoProducts, AreAllEnglishWithoutSuffixes) {
    for (const char16_t* current : {u"_ja", u"_en", u""}) {
        const ProductLists products = find({}, current);
        EXPECT_THAT(products.jsonProducts,
                    UnorderedElementsAre(product(u"P", false, path(u"P.json")),
                                         product(u"P_ja", false, path(u"P_ja.json")),
                                         product(u"P_de", false, path(u"P_de.json"))));
        EXPECT_THAT(products.zipProducts,
                    UnorderedElementsAre(product(u"Q", false, path(u"Q.zip")),
                                         product(u"Q_ja", false, path(u"Q_ja.zip"))));
    }
}

TEST_F(TwoProducts, AreAllTranslationsWithAnEmptySuffix) {
    const ProductLists products = find({u""}, u"_ja");
    EXPECT_THAT(products.jsonProducts,
                UnorderedElementsAre(product(u"P_ja", true, path(u"P_ja.json"))));
    EXPECT_THAT(products.zipProducts,
                UnorderedElementsAre(product(u"Q_ja", true, path(u"Q_ja.zip"))));
}

TEST_F(ProductEnumeration, TreatsTheSuffixEnAsPartOfAnEnglishName) {
    add({u"P_en.json"});
    EXPECT_THAT(find({u"_ja"}, u"_en").jsonProducts,
                UnorderedElementsAre(product(u"P_en", false, path(u"P_en.json"))));
}

TEST_F(ProductEnumeration, KeepsAStemWithTwoSuffixesIfItEndsWithTheCurrentOne) {
    add({u"P_de_ja.json", u"P_ja_de.json"});
    EXPECT_THAT(find({u"_ja", u"_de"}, u"_ja").jsonProducts,
                UnorderedElementsAre(product(u"P_de_ja", true, path(u"P_de_ja.json"))));
}

TEST_F(ProductEnumeration, ListsFoldersWithAValidNameLikeFiles) {
    std::filesystem::create_directory(folder_.path() / "x.json");
    EXPECT_THAT(find({}, u"_en").jsonProducts,
                UnorderedElementsAre(product(u"x", false, path(u"x.json"))));
}

TEST_F(ProductEnumeration, ComparesNamesExactly) {
    add({u"P.JSON", u"Q.Zip", u"P_JA.json", u"archive.tar.zip"});
    const ProductLists products = find({u"_ja"}, u"_en");
    EXPECT_THAT(products.jsonProducts,
                UnorderedElementsAre(product(u"P_JA", false, path(u"P_JA.json"))));
    EXPECT_THAT(products.zipProducts,
                UnorderedElementsAre(product(u"archive.tar", false, path(u"archive.tar.zip"))));
}

TEST_F(ProductEnumeration, ListsNamesBeyondAsciiAndEmptyStems) {
    add({u"\u00E9\U0001F333_ja.json", u".json", u".zip"});
    const ProductLists products = find({u"_ja"}, u"_ja");
    EXPECT_THAT(products.jsonProducts,
                UnorderedElementsAre(
                    product(u"\u00E9\U0001F333_ja", true, path(u"\u00E9\U0001F333_ja.json")),
                    product(u"", false, path(u".json"))));
    EXPECT_THAT(products.zipProducts, UnorderedElementsAre(product(u"", false, path(u".zip"))));
}

POSIX_TEST_F(ProductEnumeration, ListsAnIllFormedNameWithReplacementsAndGoesOn) {
    add({u"before.json", u"later.json"});
    folder_.write("bad\xFF\xE3.json", "");
    EXPECT_THAT(
        find({}, u"_en").jsonProducts,
        UnorderedElementsAre(product(u"before", false, path(u"before.json")),
                             product(u"bad\uFFFD\uFFFD", false, path(u"bad\uFFFD\uFFFD.json")),
                             product(u"later", false, path(u"later.json"))));
}

TEST_F(ProductEnumeration, FindsNothingInAFolderThatIsMissingEmptyOrNotAFolder) {
    folder_.write("file.json", "");
    std::filesystem::create_directory(folder_.path() / "empty");
    std::u16string withNul = folder_.u16();
    withNul += u'\0';
    const std::vector<std::u16string> roots = {
        u"", path(u"missing"), path(u"empty"), path(u"file.json"), withNul, path(u"\xD800")};
    for (const std::u16string& root : roots) {
        const ProductLists products = DocResourceParser::getAllProducts(root, {u"_ja"}, u"_ja");
        EXPECT_THAT(products.jsonProducts, IsEmpty());
        EXPECT_THAT(products.zipProducts, IsEmpty());
    }
}

} // namespace
} // namespace docparser_tests
