#include "tools/refdoc/check/rules/SchemaRules.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace refdoc::check {

void PrintTo(const Finding& finding, std::ostream* stream) {
    *stream << finding.rule->name << " at " << *finding.location.pointer << ": " << finding.message;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kSchema = R"({
    "type": "object",
    "x-path": {"path": "place", "folders": ["title", "code"]},
    "required": ["title"],
    "properties": {
        "title": {"type": "string"},
        "code": {"type": "string", "x-readAs": "ascii"},
        "codes": {"type": "array", "x-readAs": "ascii", "items": {"type": "string"}},
        "mark": {"x-countsBy": "presence"},
        "version": {"type": "string", "x-known": ["1", "2"]},
        "place": {"type": "string"},
        "parts": {"type": "array", "items": {"$ref": "#/definitions/partOrParts"}}
    },
    "definitions": {
        "partOrParts": {
            "type": "object",
            "if": {"required": ["many"]},
            "then": {"properties": {"many": {"type": "array",
                                             "items": {"$ref": "#/definitions/part"}}}},
            "else": {"$ref": "#/definitions/part"}
        },
        "part": {
            "type": "object",
            "x-names": {"list": "kinds", "key": "kind", "word": "wide"},
            "properties": {
                "name": {"type": "string", "x-readAs": "names"},
                "kinds": {"type": "array", "items": {
                    "type": "object",
                    "properties": {"kind": {"default": "narrow",
                                            "anyOf": [{"enum": ["narrow", "wide"]}, {}]}}}}
            }
        }
    }
})";

std::vector<Finding> compare(const std::string& document) {
    std::vector<Finding> findings;
    addSchemaFindings(Schema(kSchema), boost::json::parse(document), findings);
    return findings;
}

MATCHER_P4(IsFinding, rule, pointer, isAtKey, message, "") {
    return arg.rule->name == rule && arg.location.pointer == pointer &&
           arg.location.isAtKey == isAtKey && arg.message.find(message) != std::string::npos;
}

TEST(SchemaRules, AcceptDocumentThatConforms) {
    EXPECT_THAT(compare(R"({"title": "ä", "code": "a", "codes": ["b"], "mark": 7, "parts": [
                         {"name": "a", "kinds": [{"kind": "narrow"}]},
                         {"many": [{"name": "b"}, {}]}]})"),
                IsEmpty());
}

TEST(SchemaRules, ReportMissingKeyAtItsObject) {
    EXPECT_THAT(compare("{}"), ElementsAre(IsFinding("missing-key", "", false, "\"title\"")));
}

TEST(SchemaRules, ReportWrongTypesAtEachDepth) {
    EXPECT_THAT(compare("[]"), ElementsAre(IsFinding("wrong-kind", "", false,
                                                     "expected an object, found an array")));
    EXPECT_THAT(compare(R"({"title": null, "codes": ["a", 1], "parts": [{"many": {}}, true]})"),
                ElementsAre(IsFinding("wrong-kind", "/title", false, "null"),
                            IsFinding("wrong-kind", "/codes/1", false, "a number"),
                            IsFinding("wrong-kind", "/parts/0/many", false, "an object"),
                            IsFinding("wrong-kind", "/parts/1", false, "a Boolean")));
}

TEST(SchemaRules, ReportUnknownKeysWithNearestKey) {
    EXPECT_THAT(
        compare(R"({"title": "", "Title": "", "x/y~z": 1})"),
        ElementsAre(IsFinding("unknown-key", "/Title", true, "ignored; did you mean \"title\"?"),
                    IsFinding("unknown-key", "/x~1y~0z", true, "\"x/y~z\"")));
}

TEST(SchemaRules, IgnoreValuesOfUnknownKeys) {
    EXPECT_THAT(compare(R"({"title": "", "more": {"title": 7}})"),
                ElementsAre(IsFinding("unknown-key", "/more", true, "")));
}

TEST(SchemaRules, ReportOtherKeysBesideAlternative) {
    EXPECT_THAT(compare(R"({"title": "", "parts": [{"many": [{"name": 1}], "name": 1}]})"),
                ElementsAre(IsFinding("wrong-kind", "/parts/0/many/0/name", false, ""),
                            IsFinding("unknown-key", "/parts/0/name", true, "")));
}

TEST(SchemaRules, ReportUnknownWordsWithDefault) {
    EXPECT_THAT(
        compare(R"({"title": "",
                    "parts": [{"kinds": [{"kind": "Wide"}, {"kind": "Narrow"}, {"kind": 1}]}]})"),
        ElementsAre(IsFinding("unknown-word", "/parts/0/kinds/0/kind", false,
                              "\"Wide\", read as the default \"narrow\"; did you mean \"wide\"?"),
                    IsFinding("unknown-word", "/parts/0/kinds/1/kind", false,
                              "\"Narrow\", read as the default \"narrow\""),
                    IsFinding("unknown-word", "/parts/0/kinds/2/kind", false,
                              "expected a word, found a number; read as the default \"narrow\"")));
}

TEST(SchemaRules, ReportNonAsciiStringsWithResult) {
    EXPECT_THAT(compare(R"({"title": "", "code": "aéb", "codes": ["a", "ü"]})"),
                ElementsAre(IsFinding("not-ascii", "/code", false, "\"é\" becomes \"Ã©\""),
                            IsFinding("not-ascii", "/codes/1", false, "\"ü\"")));
}

TEST(SchemaRules, ReadNamesDependingOnTheirObject) {
    EXPECT_THAT(compare(R"({"title": "", "parts": [{"name": "é", "kinds": [{"kind": "wide"}]},
                                                {"name": "é", "kinds": [{"kind": "narrow"}, 7]},
                                                {"name": "é", "kinds": "wide"}]})"),
                ElementsAre(IsFinding("not-ascii", "/parts/1/name", false, ""),
                            IsFinding("wrong-kind", "/parts/1/kinds/1", false, ""),
                            IsFinding("not-ascii", "/parts/2/name", false, ""),
                            IsFinding("wrong-kind", "/parts/2/kinds", false, "")));
}

TEST(SchemaRules, ReportFalseWhereValueHasNoEffect) {
    EXPECT_THAT(compare(R"({"title": "", "mark": false})"),
                ElementsAre(IsFinding("deprecated-false", "/mark", true, "\"mark\": false")));
    EXPECT_THAT(compare(R"({"title": "", "mark": null})"), IsEmpty());
}

TEST(SchemaRules, ReportUnknownVersions) {
    EXPECT_THAT(compare(R"({"title": "", "version": "3"})"),
                ElementsAre(IsFinding("unknown-version", "/version", false,
                                      "unknown format version \"3\"; known: \"1\", \"2\"")));
    EXPECT_THAT(compare(R"({"title": "", "version": "2"})"), IsEmpty());
}

TEST(SchemaRules, ReportPathsWithoutTheirFolder) {
    EXPECT_THAT(compare(R"({"title": "a", "code": "b", "place": "x/aa/y"})"),
                ElementsAre(IsFinding("help-location", "/place", false,
                                      "\"x/aa/y\" does not contain the help folder \"a\"")));
    for (const char* place : {"", "a", "b", "/a/", "x/b", "x/a/y"})
        EXPECT_THAT(
            compare(std::string(R"({"title": "a", "code": "b", "place": ")") + place + "\"}"),
            IsEmpty())
            << place;
    EXPECT_THAT(compare(R"({"title": "a", "place": 1})"),
                ElementsAre(IsFinding("wrong-kind", "/place", false, "")));
}

TEST(SchemaRules, IdentifyElementsByNameNotIndex) {
    const std::string first = R"({"title": "", "parts": [{"name": "a", "odd": 1}]})";
    const std::string second =
        R"({"title": "", "parts": [{"name": "b"}, {"name": "a", "odd": 1}]})";
    EXPECT_EQ(compare(first).at(0).identity, compare(second).at(0).identity);
}

TEST(Schema, RejectsOtherDocuments) {
    EXPECT_ANY_THROW(Schema("[]"));
    EXPECT_ANY_THROW(Schema("{"));
    EXPECT_ANY_THROW(Schema(R"({"items": {"$ref": "#/nowhere"}})"));
}

} // namespace
} // namespace refdoc::check
