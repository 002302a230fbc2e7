#include "tools/refdoc/site/PageDirectory.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tools/refdoc/site/ProductReader.hpp"
#include "tools/refdoc/site/SitePaths.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>

namespace refdoc::site {
namespace {

using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;

class PageDirectoryTest : public testing::Test {
protected:
    PageDirectoryTest() { DocResourceParser::setReferenceRoot(folder_.u16()); }
    ~PageDirectoryTest() override { DocResourceParser::restoreDefaultSettings(); }

    // Adds the product with this section and item.
    void add(const std::string& section, const std::string& href) {
        folder_.write("docCatalog/referenceapi/Orchard.json",
                      fmt::format(R"({{"productName": "Orchard", "baseCode": "OR",
                          "helpFolder": "{0}", "helpLocation": "help/{0}",
                          "refItems": [{{"href": "{1}", "refpurpose": ""}}]}})",
                                  section, href));
        LoadAccount failures;
        Product product = readProduct(u"Orchard", paths_.languages(), failures);
        paths_.choose(u"Orchard", product);
        directory_.add(u"Orchard", product);
    }

    std::string pageAt(const std::u16string& location) const {
        return directory_.pageAt(u"en", location);
    }

    docparser_tests::TemporaryFolder folder_;
    SitePaths paths_;
    PageDirectory directory_;
};

TEST_F(PageDirectoryTest, PagesAreFoundBelowTheHelpLocation) {
    add("orchard", "ref/a.html");
    EXPECT_EQ(pageAt(u"help/orchard/ref/a.html"), "orchard/ref/a.html");
    EXPECT_EQ(pageAt(u"help/orchard/b.html"), "");
    EXPECT_EQ(pageAt(u"help/cellar/ref/a.html"), "");
    EXPECT_EQ(directory_.pageAt(u"de", u"help/orchard/ref/a.html"), "");
}

TEST_F(PageDirectoryTest, ProductThatWasReadAgainHasOnlyItsNewPages) {
    add("orchard", "a.html");
    add("cellar", "a.html");
    EXPECT_EQ(pageAt(u"help/orchard/a.html"), "");
    EXPECT_EQ(pageAt(u"help/cellar/a.html"), "cellar/a.html");
    directory_.add(u"Orchard", {});
    EXPECT_EQ(pageAt(u"help/cellar/a.html"), "");
}

} // namespace
} // namespace refdoc::site
