#include "docparser/parsing/ItemPartReaders.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using namespace reference::property;
using enum StringParsingType;
using testing::ElementsAre;
using testing::IsEmpty;

const std::u16string kHref = u"f.html";

Input input(const char16_t* name, bool isNameValuePair) {
    return {ObjectInfo(name, u"", {}, u"f.html#"), SyntaxType::Function, u"", isNameValuePair};
}

TEST(ItemPartReaders, ReadAnAbsentKeyAsNoRecords) {
    EXPECT_THAT(readRefEntities(nullptr).entities, IsEmpty());
    EXPECT_FALSE(readRefEntities(nullptr).hasComponent);
    EXPECT_EQ(readAppThumbnail(nullptr), AppThumbnail(u"", u""));
    EXPECT_THAT(readSyntaxGroups(nullptr), IsEmpty());
    EXPECT_THAT(readInputs(nullptr, kHref, Ascii), IsEmpty());
    EXPECT_THAT(readInputGroups(nullptr, kHref, Ascii), IsEmpty());
    EXPECT_THAT(readOutputs(nullptr, kHref), IsEmpty());
    EXPECT_THAT(readClassPropertyGroups(nullptr, kHref, Ascii), IsEmpty());
    EXPECT_THAT(readSeeAlso(nullptr), IsEmpty());
    EXPECT_THAT(readExamples(nullptr), IsEmpty());
    EXPECT_THAT(readParameters(nullptr, kHref), IsEmpty());
}

TEST(ItemPartReaders, ReadAnEmptyListAsNoRecords) {
    const json::value none = json::parse("[]");
    EXPECT_THAT(readRefEntities(&none).entities, IsEmpty());
    EXPECT_THAT(readSyntaxGroups(&none), IsEmpty());
    EXPECT_THAT(readInputs(&none, kHref, Ascii), IsEmpty());
    EXPECT_THAT(readInputGroups(&none, kHref, Ascii), IsEmpty());
    EXPECT_THAT(readOutputs(&none, kHref), IsEmpty());
    EXPECT_THAT(readClassPropertyGroups(&none, kHref, Ascii), IsEmpty());
    EXPECT_THAT(readSeeAlso(&none), IsEmpty());
    EXPECT_THAT(readExamples(&none), IsEmpty());
    EXPECT_THAT(readParameters(&none, kHref), IsEmpty());
}

TEST(ItemPartReaders, ReadAbsentAndUnknownWordsOfEntitiesAsDefaults) {
    const json::value refentity = json::parse(R"([{"name": "a"},
        {"name": "b", "type": "grafting", "fcntype": "grafting"},
        {"name": "c", "type": "event", "fcntype": "macro"}])");
    EXPECT_THAT(readRefEntities(&refentity).entities,
                ElementsAre(RefEntity(RefEntityType::Function, u"a", FunctionType::Function),
                            RefEntity(RefEntityType::Function, u"b", FunctionType::Function),
                            RefEntity(RefEntityType::Event, u"c", FunctionType::Macro)));
    EXPECT_FALSE(readRefEntities(&refentity).hasComponent);
}

TEST(ItemPartReaders, FindAComponentAmongTheEntities) {
    const json::value refentity = json::parse(
        R"([{"name": "a"}, {"name": "b", "type": "component"}, {"name": "c", "type": "app"}])");
    EXPECT_TRUE(readRefEntities(&refentity).hasComponent);
}

TEST(ItemPartReaders, ReadThumbnails) {
    const json::value appthumbnail = json::parse(R"({"alt": "A tree", "fileref": "t.png"})");
    EXPECT_EQ(readAppThumbnail(&appthumbnail), AppThumbnail(u"t.png", u"A tree"));
}

TEST(ItemPartReaders, KeepSyntaxLinesInFileOrder) {
    const json::value syntaxgroup = json::parse(R"([
        {"title": "A", "syntaxtype": "constructor", "syntax": ["z", "a", "z"]}, {"title": "B"}])");
    EXPECT_THAT(readSyntaxGroups(&syntaxgroup),
                ElementsAre(SyntaxGroup(u"A", SyntaxType::Constructor, {u"z", u"a", u"z"}),
                            SyntaxGroup(u"B", SyntaxType::Function, {})));
}

TEST(ItemPartReaders, ReadAnInputWithOnlyItsRequiredKeys) {
    const json::value inputs = json::parse(R"([{"name": "i", "purpose": "p"}])");
    EXPECT_THAT(readInputs(&inputs, kHref, Ascii),
                ElementsAre(Input(ObjectInfo(u"i", u"p", {}, u"f.html#"), SyntaxType::Function, u"",
                                  /*isNameValuePair=*/false)));
}

TEST(ItemPartReaders, ReadAnInputWithAllItsKeys) {
    const json::value inputs = json::parse(R"([{"name": "i", "purpose": "p", "htmlid": "id",
        "value": ["on", "off", "on"], "defaultvalue": "off", "syntaxtype": "command"}])");
    EXPECT_THAT(readInputs(&inputs, kHref, Ascii),
                ElementsAre(Input(ObjectInfo(u"i", u"p", {u"on", u"off", u"on"}, u"f.html#id"),
                                  SyntaxType::Command, u"off", /*isNameValuePair=*/false)));
}

TEST(ItemPartReaders, ReplaceAnInputByItsNameValuePairs) {
    const json::value inputs = json::parse(R"([{"name": "a", "purpose": ""},
        {"name": 5, "purpose": 5, "namevaluepairs": [{"name": "b", "purpose": ""},
                                                     {"name": "c", "purpose": ""}]},
        {"name": "d", "purpose": ""}, {"namevaluepairs": [{"name": "e", "purpose": ""}]}])");
    EXPECT_THAT(readInputs(&inputs, kHref, Ascii),
                ElementsAre(input(u"a", false), input(u"b", true), input(u"c", true),
                            input(u"d", false), input(u"e", true)));
}

TEST(ItemPartReaders, RemoveAnInputWithAnEmptyListOfPairs) {
    const json::value inputs = json::parse(
        R"([{"name": "a", "purpose": "", "namevaluepairs": []}, {"name": "b", "purpose": ""}])");
    EXPECT_THAT(readInputs(&inputs, kHref, Ascii), ElementsAre(input(u"b", false)));
}

TEST(ItemPartReaders, IgnorePairsWithinPairs) {
    const json::value inputs =
        json::parse(R"([{"namevaluepairs": [{"name": "a", "purpose": "", "namevaluepairs": 5}]}])");
    EXPECT_THAT(readInputs(&inputs, kHref, Ascii), ElementsAre(input(u"a", true)));
}

TEST(ItemPartReaders, ReplaceAGroupByItsGroupsOfNameValuePairs) {
    const json::value inputgroup = json::parse(R"([{"namevaluepairs": [
        {"title": "A", "inputs": [{"name": "a", "purpose": ""}, {"name": "b", "purpose": ""}]},
        {"title": "B"}]}])");
    EXPECT_THAT(readInputGroups(&inputgroup, kHref, Ascii),
                ElementsAre(InputGroup(u"A", {input(u"a", true), input(u"b", true)}),
                            InputGroup(u"B", {})));
}

TEST(ItemPartReaders, KeepGroupsOfBothKindsInFileOrder) {
    const json::value inputgroup = json::parse(R"([
        {"title": "A", "inputs": [{"name": "a", "purpose": "", "namevaluepairs": 5}]},
        {"title": 5, "inputs": 5, "namevaluepairs": []},
        {"namevaluepairs": [{"title": "B", "namevaluepairs": 5}]}, {"title": "C"}])");
    EXPECT_THAT(readInputGroups(&inputgroup, kHref, Ascii),
                ElementsAre(InputGroup(u"A", {input(u"a", false)}), InputGroup(u"B", {}),
                            InputGroup(u"C", {})));
}

TEST(ItemPartReaders, ReadNoDefaultsOfOutputs) {
    const json::value outputs = json::parse(R"([{"name": "o", "purpose": "p", "htmlid": "id",
        "value": ["v"], "syntaxtype": "operator", "defaultvalue": 5},
        {"name": "é", "purpose": ""}])");
    EXPECT_THAT(
        readOutputs(&outputs, kHref),
        ElementsAre(Output(ObjectInfo(u"o", u"p", {u"v"}, u"f.html#id"), SyntaxType::Operator),
                    Output(ObjectInfo(u"\u00E9", u"", {}, u"f.html#"), SyntaxType::Function)));
}

TEST(ItemPartReaders, ReadNoSyntaxTypesOfParameters) {
    const json::value parameters = json::parse(R"([{"name": "q", "purpose": "p", "htmlid": "id",
        "value": ["v"], "defaultvalue": "3", "syntaxtype": 5}, {"name": "é", "purpose": ""}])");
    EXPECT_THAT(readParameters(&parameters, kHref),
                ElementsAre(Parameter(ObjectInfo(u"q", u"p", {u"v"}, u"f.html#id"), u"3"),
                            Parameter(ObjectInfo(u"\u00E9", u"", {}, u"f.html#"), u"")));
}

TEST(ItemPartReaders, LinkToPropertiesByTheirNames) {
    const json::value groups = json::parse(R"([{"title": "T", "classproperty": [
        {"name": "Color", "purpose": "p", "value": ["red"], "defaultvalue": "red", "htmlid": 5},
        {"name": "é", "purpose": ""}]}])");
    EXPECT_THAT(
        readClassPropertyGroups(&groups, kHref, Ascii),
        ElementsAre(ClassPropertyGroup(
            u"T",
            {ClassProperty(ObjectInfo(u"Color", u"p", {u"red"}, u"f.html#prop_Color"), u"red"),
             ClassProperty(ObjectInfo(u"\u00C3\u00A9", u"", {}, u"f.html#prop_\u00C3\u00A9"),
                           u"")})));
    EXPECT_EQ(readClassPropertyGroups(&groups, kHref, Utf8)
                  .at(0)
                  .getProperties()
                  .at(1)
                  .getObjectInfo()
                  .getHref(),
              u"f.html#prop_\u00E9");
}

TEST(ItemPartReaders, AcceptPropertyGroupsWithoutTitleAndProperties) {
    const json::value groups = json::parse(R"([{"classproperty": []}, {}, {"title": "T"}])");
    EXPECT_THAT(readClassPropertyGroups(&groups, kHref, Ascii),
                ElementsAre(ClassPropertyGroup(u"", {}), ClassPropertyGroup(u"", {}),
                            ClassPropertyGroup(u"T", {})));
}

TEST(ItemPartReaders, KeepLinksAndExamplesInFileOrder) {
    const json::value seealso =
        json::parse(R"([{"url": "z", "name": "Z"}, {"url": "a", "name": "A"}])");
    EXPECT_THAT(readSeeAlso(&seealso), ElementsAre(SeeAlso(u"z", u"Z"), SeeAlso(u"a", u"A")));
    const json::value examples =
        json::parse(R"([{"url": "z", "open_command": "open z", "title": "Z"},
                        {"url": "a", "open_command": "open a", "title": "A"}])");
    EXPECT_THAT(readExamples(&examples),
                ElementsAre(Example(u"z", u"open z", u"Z"), Example(u"a", u"open a", u"A")));
}

} // namespace
} // namespace docparser_tests
