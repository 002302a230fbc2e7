#include "docparser/DocParserException.hpp"
#include "docparser/Queries.hpp"
#include "tests/system/SystemTest.hpp"

#include <filesystem>
#include <set>

namespace docparser_tests {
namespace {

using namespace reference::docparser;

class RecordQueriesTest : public SystemTest {};

TEST_F(RecordQueriesTest, FindsTheFirstItemOfALink) {
    addApi("Orchard.json", resourceText("orchard", {{"a.html", "A"}, {"b.html", "B"}}));
    const Resources resources = DocResourceParser::getResourceFile(u"Orchard");
    const RefItem* item = findItem(resources, u"b.html");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item, &resources.at(u"orchard").items.at(u"b.html").front());
    EXPECT_EQ(findItem(resources, u"c.html"), nullptr);
    EXPECT_EQ(findItem({}, u"b.html"), nullptr);
}

TEST_F(RecordQueriesTest, ReadsOneItem) {
    addApi("Orchard.json", resourceText("orchard", {{"a.html", "A"}}));
    EXPECT_EQ(getItem(u"Orchard", u"a.html"), record(u"a.html", u"A"));
    EXPECT_EQ(getItem(u"Orchard", u"b.html"), std::nullopt);
    EXPECT_THROW(getItem(u"Cellar", u"a.html"), DocParserException);
}

TEST_F(RecordQueriesTest, ListsProductsForTheCurrentLanguages) {
    host->languages = {u"en", u"de", u"ja"};
    host->language = u"ja";
    for (const char* file : {"Orchard.json", "Orchard_de.json", "Orchard_ja.json", "Cellar.zip"})
        addLookup(file, "{}");
    const std::u16string lookups = DocResourceParser::getReferenceRoots()->lookupFolder;
    const ProductLists products = getAllProducts(lookups);
    std::set<std::u16string> names;
    for (const ProductPathData& product : products.jsonProducts)
        names.insert(product.getName());
    EXPECT_EQ(names, (std::set<std::u16string>{u"Orchard", u"Orchard_ja"}));
    ASSERT_EQ(products.zipProducts.size(), 1U);
    EXPECT_EQ(products.zipProducts.front().getName(), u"Cellar");
}

TEST(ConversionTest, ConvertsNamesAndReplacesWhatIsIllFormed) {
    EXPECT_EQ(fromUtf8("\xC3\x9C"), u"\u00DC");
    EXPECT_EQ(toUtf8(u"\u00DC"), "\xC3\x9C");
    EXPECT_EQ(fromUtf8("a\xFF"), u"a\uFFFD");
    EXPECT_EQ(toUtf8(std::u16string(1, u'\xD800')), "\xEF\xBF\xBD");
}

TEST(ConversionTest, ConvertsPathsInBothDirections) {
    const std::filesystem::path path = std::filesystem::path("help") / u"\u00DC";
    EXPECT_EQ(toPath(fromPath(path)), path);
    EXPECT_EQ(fromPath(path), path.u16string());
}

} // namespace
} // namespace docparser_tests
