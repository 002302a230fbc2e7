#include "tools/refdoc/check/schema/SchemaWalker.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace refdoc::check {

void PrintTo(const ContentFinding& finding, std::ostream* stream) {
    *stream << ruleOf(finding.rule).name << " at " << finding.pointer << ": " << finding.message;
}

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kSchema = R"({
    "type": "object",
    "required": ["title"],
    "properties": {
        "title": {"type": "string"},
        "code": {"type": "string", "x-readAs": "ascii"},
        "codes": {"type": "array", "x-readAs": "ascii", "items": {"type": "string"}},
        "mark": {"x-countsBy": "presence"},
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

std::vector<ContentFinding> walk(const std::string& document) {
    return walkDocument(Schema(kSchema), boost::json::parse(document));
}

auto finding(RuleId rule, const std::string& pointer, bool isAtKey, const std::string& message) {
    return AllOf(Field(&ContentFinding::rule, rule), Field(&ContentFinding::pointer, pointer),
                 Field(&ContentFinding::isAtKey, isAtKey),
                 Field(&ContentFinding::message, HasSubstr(message)));
}

TEST(SchemaWalker, FindsNothingInWhatTheSchemaForesees) {
    EXPECT_THAT(walk(R"({"title": "ä", "code": "a", "codes": ["b"], "mark": 7, "parts": [
                         {"name": "a", "kinds": [{"kind": "narrow"}]},
                         {"many": [{"name": "b"}, {}]}]})"),
                IsEmpty());
}

TEST(SchemaWalker, FindsAMissingKeyAtItsObject) {
    EXPECT_THAT(walk("{}"), ElementsAre(finding(RuleId::MissingKey, "", false, "\"title\"")));
}

TEST(SchemaWalker, FindsWrongKindsAtEachDepth) {
    EXPECT_THAT(walk("[]"), ElementsAre(finding(RuleId::WrongKind, "", false,
                                                "expected an object, found an array")));
    EXPECT_THAT(walk(R"({"title": null, "codes": ["a", 1], "parts": [{"many": {}}, true]})"),
                ElementsAre(finding(RuleId::WrongKind, "/title", false, "null"),
                            finding(RuleId::WrongKind, "/codes/1", false, "a number"),
                            finding(RuleId::WrongKind, "/parts/0/many", false, "an object"),
                            finding(RuleId::WrongKind, "/parts/1", false, "a Boolean")));
}

TEST(SchemaWalker, FindsUnknownKeysAtTheKeyAndNamesTheNearest) {
    EXPECT_THAT(
        walk(R"({"title": "", "Title": "", "x/y~z": 1})"),
        ElementsAre(finding(RuleId::UnknownKey, "/Title", true, "ignored; did you mean \"title\"?"),
                    finding(RuleId::UnknownKey, "/x~1y~0z", true, "\"x/y~z\"")));
}

TEST(SchemaWalker, PassesOverWhatIsBelowAnUnknownKey) {
    EXPECT_THAT(walk(R"({"title": "", "more": {"title": 7}})"),
                ElementsAre(finding(RuleId::UnknownKey, "/more", true, "")));
}

TEST(SchemaWalker, BesideTheKeyOfAnAlternativeNothingElseCounts) {
    EXPECT_THAT(walk(R"({"title": "", "parts": [{"many": [{"name": 1}], "name": 1}]})"),
                ElementsAre(finding(RuleId::WrongKind, "/parts/0/many/0/name", false, ""),
                            finding(RuleId::UnknownKey, "/parts/0/name", true, "")));
}

TEST(SchemaWalker, FindsUnknownWordsAndTellsTheDefault) {
    EXPECT_THAT(walk(R"({"title": "", "parts": [{"kinds": [{"kind": "Wide"}, {"kind": 1}]}]})"),
                ElementsAre(finding(RuleId::UnknownWord, "/parts/0/kinds/0/kind", false,
                                    "\"Wide\" counts as \"narrow\"; did you mean \"wide\"?"),
                            finding(RuleId::UnknownWord, "/parts/0/kinds/1/kind", false,
                                    "a number is no word and counts as \"narrow\"")));
}

TEST(SchemaWalker, FindsWhatIsBeyondAsciiAndShowsWhatBecomesOfIt) {
    EXPECT_THAT(walk(R"({"title": "", "code": "aéb", "codes": ["a", "ü"]})"),
                ElementsAre(finding(RuleId::NotAscii, "/code", false, "\"é\" becomes \"Ã©\""),
                            finding(RuleId::NotAscii, "/codes/1", false, "\"ü\"")));
}

TEST(SchemaWalker, ReadsNamesAsTheirObjectSays) {
    EXPECT_THAT(walk(R"({"title": "", "parts": [{"name": "é", "kinds": [{"kind": "wide"}]},
                                                {"name": "é", "kinds": [{"kind": "narrow"}, 7]},
                                                {"name": "é", "kinds": "wide"}]})"),
                ElementsAre(finding(RuleId::NotAscii, "/parts/1/name", false, ""),
                            finding(RuleId::WrongKind, "/parts/1/kinds/1", false, ""),
                            finding(RuleId::NotAscii, "/parts/2/name", false, ""),
                            finding(RuleId::WrongKind, "/parts/2/kinds", false, "")));
}

TEST(SchemaWalker, OnlyFalseIsFoundWhereTheKeyAloneCounts) {
    EXPECT_THAT(walk(R"({"title": "", "mark": false})"),
                ElementsAre(finding(RuleId::DeprecatedFalse, "/mark", true, "\"mark\": false")));
    EXPECT_THAT(walk(R"({"title": "", "mark": null})"), IsEmpty());
}

TEST(SchemaWalker, IdentifiesElementsByTheirNamesAndNotByTheirPlaces) {
    const std::string first = R"({"title": "", "parts": [{"name": "a", "odd": 1}]})";
    const std::string second =
        R"({"title": "", "parts": [{"name": "b"}, {"name": "a", "odd": 1}]})";
    EXPECT_EQ(walk(first).at(0).identity, walk(second).at(0).identity);
}

TEST(Schema, RefusesWhatIsNoSchema) {
    EXPECT_ANY_THROW(Schema("[]"));
    EXPECT_ANY_THROW(Schema("{"));
    EXPECT_ANY_THROW(Schema(R"({"items": {"$ref": "#/nowhere"}})"));
}

} // namespace
} // namespace refdoc::check
