#include "docparser/parsing/LookupParser.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using namespace reference::property;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

DocResource<RefItemLookup> parse(const std::string& refItems) {
    const json::value section = json::parse(
        R"({"productName": "P", "baseCode": "B", "helpFolder": "f", "helpLocation": "l",)"
        R"("refItems": )" +
        refItems + "}");
    return parseRefItemLookupSection(section, u"p");
}

TEST(LookupParser, ReadsAnEmptyListAsNoItems) {
    const DocResource<RefItemLookup> section = parse("[]");
    EXPECT_EQ(section.header, HeaderInfo(u"", u"", u"P", u"B", u"f", u"l", u"p"));
    EXPECT_THAT(section.items, IsEmpty());
}

TEST(LookupParser, FillsEachFieldFromItsKey) {
    const auto section = parse(R"([{"name": "graft", "type": "method", "refpurpose": "Join trees",
        "deprecated": true, "href": "graft.html", "fcntype": "static"}])");
    EXPECT_THAT(section.items,
                ElementsAre(Pair(u"graft",
                                 ElementsAre(RefItemLookup(u"graft", RefEntityType::Method,
                                                           u"Join trees", /*deprecated=*/true,
                                                           u"graft.html", FunctionType::Static)))));
}

TEST(LookupParser, KeepsItemsOfOneNameInFileOrder) {
    const auto section = parse(R"([
        {"name": "graft", "refpurpose": "second page first", "href": "z.html"},
        {"name": "prune", "refpurpose": "", "href": "prune.html"},
        {"name": "Graft", "refpurpose": "", "href": "G.html"},
        {"name": "graft", "refpurpose": "then this", "href": "a.html"},
        {"name": "graft", "refpurpose": "then this", "href": "a.html"}])");
    const auto item = [](const char16_t* name, const char16_t* purpose, const char16_t* href) {
        return RefItemLookup(name, RefEntityType::Function, purpose, /*deprecated=*/false, href,
                             FunctionType::Function);
    };
    EXPECT_THAT(
        section.items,
        ElementsAre(Pair(u"Graft", ElementsAre(item(u"Graft", u"", u"G.html"))),
                    Pair(u"graft", ElementsAre(item(u"graft", u"second page first", u"z.html"),
                                               item(u"graft", u"then this", u"a.html"),
                                               item(u"graft", u"then this", u"a.html"))),
                    Pair(u"prune", ElementsAre(item(u"prune", u"", u"prune.html")))));
}

TEST(LookupParser, MarksItemsWithTheKeyDeprecatedWhateverItsValue) {
    for (const char* value : {"false", "true", "null", "0", "1.5", "\"\"", "[]", "{}"}) {
        const auto section =
            parse(R"([{"name": "n", "refpurpose": "", "href": "h", "deprecated": )" +
                  std::string(value) + "}]");
        EXPECT_TRUE(section.items.at(u"n").at(0).getDeprecated()) << value;
    }
    const auto without = parse(R"([{"name": "n", "refpurpose": "", "href": "h"}])");
    EXPECT_FALSE(without.items.at(u"n").at(0).getDeprecated());
}

TEST(LookupParser, ReadsAbsentAndUnknownWordsAsDefaults) {
    for (const char* words : {"", R"(, "type": "grafting", "fcntype": "grafting")",
                              R"(, "type": "Class", "fcntype": "METHOD")"}) {
        const auto section =
            parse(R"([{"name": "n", "refpurpose": "", "href": "h")" + std::string(words) + "}]");
        const RefItemLookup& item = section.items.at(u"n").at(0);
        EXPECT_EQ(item.getEntityType(), RefEntityType::getDefaultValue());
        EXPECT_EQ(item.getFunctionType(), FunctionType::getDefaultValue());
    }
}

TEST(LookupParser, DecodesNamesAndWidensLinks) {
    const auto section = parse(R"([{"name": "é", "refpurpose": "樹", "href": "é.html"}])");
    EXPECT_THAT(section.items,
                ElementsAre(Pair(u"\u00E9", ElementsAre(RefItemLookup(
                                                u"\u00E9", RefEntityType::Function, u"\u6A39",
                                                /*deprecated=*/false, u"\u00C3\u00A9.html",
                                                FunctionType::Function)))));
}

} // namespace
} // namespace docparser_tests
