#include "docparser/parsing/ItemParser.hpp"

#include "tests/support/Records.hpp"

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

DocResource<RefItem> parse(const std::string& refItems) {
    const json::value section = json::parse(
        R"({"productName": "P", "baseCode": "B", "helpFolder": "f", "helpLocation": "l",)"
        R"("refItems": )" +
        refItems + "}");
    return parseRefItemSection(section, u"p");
}

TEST(ItemParser, ReadsAnEmptyListAsNoItems) {
    const DocResource<RefItem> section = parse("[]");
    EXPECT_EQ(section.header, HeaderInfo(u"", u"", u"P", u"B", u"f", u"l", u"p"));
    EXPECT_THAT(section.items, IsEmpty());
}

TEST(ItemParser, LeavesFieldsOfAbsentKeysEmpty) {
    const auto section = parse(R"([{"href": "graft.html", "refpurpose": "Join trees"}])");
    EXPECT_THAT(
        section.items,
        ElementsAre(Pair(u"graft.html", ElementsAre(makeRefItem({.href = u"graft.html",
                                                                 .refPurpose = u"Join trees"})))));
}

TEST(ItemParser, KeepsItemsOfOneHrefInFileOrder) {
    const auto section = parse(R"([{"href": "b.html", "refpurpose": "z"},
        {"href": "a.html", "refpurpose": ""}, {"href": "b.html", "refpurpose": "a"},
        {"href": "b.html", "refpurpose": "a"}])");
    EXPECT_THAT(
        section.items,
        ElementsAre(
            Pair(u"a.html", ElementsAre(makeRefItem({.href = u"a.html"}))),
            Pair(u"b.html", ElementsAre(makeRefItem({.href = u"b.html", .refPurpose = u"z"}),
                                        makeRefItem({.href = u"b.html", .refPurpose = u"a"}),
                                        makeRefItem({.href = u"b.html", .refPurpose = u"a"})))));
}

TEST(ItemParser, ComparesHrefsByCodeUnits) {
    const auto section = parse(R"([{"href": "a.html", "refpurpose": ""},
        {"href": "A.html", "refpurpose": ""}, {"href": "é", "refpurpose": ""}])");
    EXPECT_THAT(
        section.items,
        ElementsAre(Pair(u"A.html", ElementsAre(makeRefItem({.href = u"A.html"}))),
                    Pair(u"a.html", ElementsAre(makeRefItem({.href = u"a.html"}))),
                    Pair(u"\u00C3\u00A9", ElementsAre(makeRefItem({.href = u"\u00C3\u00A9"})))));
}

TEST(ItemParser, FillsEachFieldFromItsKey) {
    const auto section = parse(R"([{"href": "t.html", "refpurpose": "purpose",
        "refentity": [{"type": "class", "fcntype": "method", "name": "Tree"}],
        "packagename": "package", "introduced": "R1", "description": "description",
        "appthumbnail": {"fileref": "t.png", "alt": "A tree"}, "deprecationstatus": "removed",
        "syntaxgroup": [{"title": "S", "syntaxtype": "command", "syntax": ["t a", "t b"]}],
        "inputs": [{"name": "i", "purpose": "p"}],
        "inputgroup": [{"title": "G", "inputs": [{"name": "g", "purpose": "p"}]}],
        "outputs": [{"name": "o", "purpose": "p", "syntaxtype": "operator"}],
        "classpropertygroup": [{"title": "C", "classproperty": [{"name": "c", "purpose": "p"}]}],
        "seealso": [{"url": "u.html", "name": "u"}],
        "examples": [{"url": "e.html", "open_command": "open e", "title": "E"}],
        "parameters": [{"name": "q", "purpose": "p", "defaultvalue": "3"}]}])");
    const auto info = [](const char16_t* name, const char16_t* href) {
        return ObjectInfo(name, u"p", {}, href);
    };
    const Input inputOfNone(info(u"i", u"t.html#"), SyntaxType::Function, u"",
                            /*isNameValuePair=*/false);
    const Input inputOfGroup(info(u"g", u"t.html#"), SyntaxType::Function, u"",
                             /*isNameValuePair=*/false);
    const ClassProperty property(info(u"c", u"t.html#prop_c"), u"");
    const RefItem expected = makeRefItem(
        {.href = u"t.html",
         .refEntities = {RefEntity(RefEntityType::Class, u"Tree", FunctionType::Method)},
         .packageName = u"package",
         .refPurpose = u"purpose",
         .introduced = u"R1",
         .description = u"description",
         .appThumbnail = AppThumbnail(u"t.png", u"A tree"),
         .deprecationStatus = DeprecationStatus::Removed,
         .syntaxGroups = {SyntaxGroup(u"S", SyntaxType::Command, {u"t a", u"t b"})},
         .inputs = {inputOfNone},
         .inputGroups = {InputGroup(u"G", {inputOfGroup})},
         .outputs = {Output(info(u"o", u"t.html#"), SyntaxType::Operator)},
         .classPropertyGroups = {ClassPropertyGroup(u"C", {property})},
         .seeAlso = {SeeAlso(u"u.html", u"u")},
         .examples = {Example(u"e.html", u"open e", u"E")},
         .parameters = {Parameter(info(u"q", u"t.html#"), u"3")}});
    EXPECT_THAT(section.items, ElementsAre(Pair(u"t.html", ElementsAre(expected))));
}

// How the name "é" was read in an input of an item, in a grouped input and in a property.
std::string namesOf(const RefItem& item) {
    const auto read = [](const std::u16string& name) {
        return name == u"\u00E9" ? "decoded " : name == u"\u00C3\u00A9" ? "widened " : "wrong ";
    };
    return std::string(read(item.getInputs().at(0).getObjectInfo().getName())) +
           read(item.getInputGroups().at(0).getInputs().at(0).getObjectInfo().getName()) +
           read(
               item.getClassPropertyGroups().at(0).getProperties().at(0).getObjectInfo().getName());
}

std::string itemWithNames(const std::string& refentity) {
    return R"({"inputs": [{"name": "é", "purpose": ""}],
        "inputgroup": [{"title": "", "inputs": [{"name": "é", "purpose": ""}]}],
        "classpropertygroup": [{"classproperty": [{"name": "é", "purpose": ""}]}],
        "href": "h", "refpurpose": "", "refentity": )" +
           refentity + "}";
}

TEST(ItemParser, DecodesNamesOfInputsAndPropertiesOfComponents) {
    const std::string component = R"({"type": "component", "name": "c"})";
    const std::string other = R"({"type": "class", "name": "c"})";
    for (const std::string& entities :
         {component, component + ',' + other, other + ',' + component}) {
        const auto section = parse('[' + itemWithNames('[' + entities + ']') + ']');
        EXPECT_EQ(namesOf(section.items.at(u"h").at(0)), "decoded decoded decoded ") << entities;
    }
    for (const std::string& entities :
         {std::string(), other, std::string(R"({"type": "Component", "name": "component"})")}) {
        const auto section = parse('[' + itemWithNames('[' + entities + ']') + ']');
        EXPECT_EQ(namesOf(section.items.at(u"h").at(0)), "widened widened widened ") << entities;
    }
}

TEST(ItemParser, DoesNotDecodeNamesOfTheItemAfterAComponent) {
    const auto section = parse('[' + itemWithNames(R"([{"type": "component", "name": "c"}])") +
                               ',' + itemWithNames("[]") + ']');
    EXPECT_EQ(namesOf(section.items.at(u"h").at(0)), "decoded decoded decoded ");
    EXPECT_EQ(namesOf(section.items.at(u"h").at(1)), "widened widened widened ");
}

} // namespace
} // namespace docparser_tests
