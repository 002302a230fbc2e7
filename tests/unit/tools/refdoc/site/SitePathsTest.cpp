#include "tools/refdoc/site/SitePaths.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tools/refdoc/site/ProductReader.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>

namespace refdoc::site {
namespace {

using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;

class SitePathsTest : public testing::Test {
protected:
    SitePathsTest() { DocResourceParser::setReferenceRoot(folder_.u16()); }
    ~SitePathsTest() override { DocResourceParser::restoreDefaultSettings(); }

    void write(const std::string& product, const std::string& content) {
        folder_.write("docCatalog/referenceapi/" + product + ".json", content);
    }

    // A file with one section and one item.
    static std::string section(const std::string& key, const std::string& href) {
        return fmt::format(
            R"({{"productName": "{0} name", "baseCode": "{0}", "helpFolder": "{0}", "helpLocation": "",
                "refItems": [{{"href": "{1}", "refpurpose": ""}}]}})",
            key, href);
    }

    Product chosen(const std::u16string& name) {
        LoadAccount failures;
        Product product = readProduct(name, paths_.languages(), failures);
        paths_.choose(name, product);
        return product;
    }

    docparser_tests::TemporaryFolder folder_;
    SitePaths paths_;
};

TEST_F(SitePathsTest, SectionKeepsItsFolder) {
    write("Cellar", section("key", "a.html"));
    write("Orchard", section("KEY", "b.html"));
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(chosen(u"Cellar").pages.at(u"key").index, "key/index.html");
        EXPECT_EQ(chosen(u"Orchard").pages.at(u"KEY").index, "KEY~2/index.html");
    }
    write("Cellar", section("key", "c.html"));
    EXPECT_EQ(chosen(u"Cellar").pages.at(u"key").items.at(u"c.html"), "key/c.html");
}

TEST_F(SitePathsTest, BrokenProductKeepsThePagesOfItsSections) {
    write("Orchard", section("orchard", "a.html"));
    chosen(u"Orchard");
    write("Orchard", "{");
    const Product broken = chosen(u"Orchard");
    ASSERT_EQ(broken.pages.size(), 1U);
    EXPECT_EQ(broken.pages.at(u"orchard").index, "orchard/index.html");
    EXPECT_EQ(broken.pages.at(u"orchard").displayName, u"orchard name");
    EXPECT_TRUE(broken.pages.at(u"orchard").items.empty());
}

TEST_F(SitePathsTest, ProductThatWasAlwaysBrokenHasAPageWithItsName) {
    write("Orchard", "{");
    EXPECT_EQ(chosen(u"Orchard").pages.at(u"Orchard").index, "Orchard/index.html");
}

TEST_F(SitePathsTest, SectionThatIsGoneHasNoPage) {
    write("Orchard", section("orchard", "a.html"));
    chosen(u"Orchard");
    write("Orchard", section("garden", "a.html"));
    const Product product = chosen(u"Orchard");
    EXPECT_EQ(product.pages.size(), 1U);
    EXPECT_EQ(product.pages.at(u"garden").index, "garden/index.html");
}

TEST_F(SitePathsTest, MissingProductHasNoPages) {
    EXPECT_TRUE(chosen(u"Orchard").pages.empty());
}

} // namespace
} // namespace refdoc::site
