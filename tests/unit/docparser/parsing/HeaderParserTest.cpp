#include "docparser/parsing/HeaderParser.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/parsing/FormatError.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <exception>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using reference::property::HeaderInfo;

TEST(HeaderParser, FillsEachFieldFromItsKeyAndTheProductFromTheCaller) {
    const json::value section = json::parse(R"({"schema": "referenceapi", "schemaVersion": "2.1",
        "productName": "Orchard Toolkit", "baseCode": "OR", "helpFolder": "orchard",
        "helpLocation": "help/orchard"})");
    EXPECT_EQ(getHeaderInfo(section, u"Orchard"),
              HeaderInfo(u"referenceapi", u"2.1", u"Orchard Toolkit", u"OR", u"orchard",
                         u"help/orchard", u"Orchard"));
}

TEST(HeaderParser, LeavesSchemaAndVersionEmptyIfTheyAreAbsent) {
    const json::value section = json::parse(
        R"({"productName": "P", "baseCode": "B", "helpFolder": "f", "helpLocation": "l"})");
    EXPECT_EQ(getHeaderInfo(section, u"p"), HeaderInfo(u"", u"", u"P", u"B", u"f", u"l", u"p"));
}

TEST(HeaderParser, DecodesOnlyTheProductName) {
    const json::value section = json::parse(
        R"({"productName": "Öl 油", "baseCode": "é", "helpFolder": "f", "helpLocation": "l"})");
    const HeaderInfo header = getHeaderInfo(section, u"\u6CB9");
    EXPECT_EQ(header.getProductName(), u"\u00D6l \u6CB9");
    EXPECT_EQ(header.getBaseCode(), u"\u00C3\u00A9");
    EXPECT_EQ(header.getProduct(), u"\u6CB9");
}

TEST(HeaderParser, IgnoresOtherKeys) {
    const json::value section = json::parse(
        R"({"product": 5, "x": [], "productName": "P", "refItems": 7, "baseCode": "B",
        "BASECODE": {}, "helpFolder": "f", "helpLocation": "l", "supportPackages": null})");
    EXPECT_EQ(getHeaderInfo(section, u"p"), HeaderInfo(u"", u"", u"P", u"B", u"f", u"l", u"p"));
}

TEST(HeaderParser, IsAvailableThroughTheFacade) {
    const json::value section = json::parse(
        R"({"productName": "P", "baseCode": "B", "helpFolder": "f", "helpLocation": "l"})");
    EXPECT_EQ(DocResourceParser::ParsingTools::getHeaderInfo(section, u"p"),
              getHeaderInfo(section, u"p"));
    EXPECT_THROW(DocResourceParser::ParsingTools::getHeaderInfo(json::value(1), u"p"),
                 std::exception);
}

} // namespace
} // namespace docparser_tests
