#include "tools/refdoc/site/PageDirectory.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tools/refdoc/site/ProductReader.hpp"
#include "tools/refdoc/site/SitePaths.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace refdoc::site {
namespace {

using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;
using testing::ElementsAre;
using testing::IsEmpty;

class PageDirectoryTest : public testing::Test {
protected:
    PageDirectoryTest() { DocResourceParser::setReferenceRoot(folder_.u16()); }
    ~PageDirectoryTest() override { DocResourceParser::restoreDefaultSettings(); }

    // Adds a product with this section and item.
    void add(const std::string& section, const std::string& href,
             const std::u16string& name = u"Orchard") {
        folder_.write(fmt::format("docCatalog/referenceapi/{}.json", fl::i18n::to_string(name)),
                      fmt::format(R"({{"productName": "Orchard", "baseCode": "OR",
                          "helpFolder": "{0}", "helpLocation": "help/{0}",
                          "refItems": [{{"href": "{1}", "refpurpose": ""}}]}})",
                                  section, href));
        LoadAccount failures;
        Product product = readProduct(name, paths_.languages(), failures);
        paths_.choose(name, product);
        directory_.add(name, product);
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

TEST_F(PageDirectoryTest, NeighboursHaveHelpLocationsOnOnePath) {
    add("orchard", "a.html", u"A");
    add("orchards", "a.html", u"B");
    add("cellar", "a.html", u"C");
    EXPECT_THAT(directory_.neighbours(), IsEmpty());
    add("orchard", "a.html", u"D");
    EXPECT_THAT(directory_.neighbours(), ElementsAre(u"A", u"D"));
    add("cellar/press/old", "a.html", u"E");
    EXPECT_THAT(directory_.neighbours(), ElementsAre(u"A", u"C", u"D", u"E"));
}

} // namespace
} // namespace refdoc::site
