#include "docparser/parsing/Members.hpp"

#include "docparser/parsing/Enumerations.hpp"
#include "docparser/parsing/FormatError.hpp"
#include "tests/support/JsonValues.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using namespace reference::property;
using testing::ThrowsMessage;
using enum StringParsingType;

TEST(Members, AreFoundInAnyOrder) {
    for (const char* text :
         {R"({"a": "1", "b": "2", "c": "3"})", R"({"c": "3", "b": "2", "a": "1"})",
          R"({"x": 0, "b": "2", "y": 0, "a": "1", "A": 0, "c": "3", "ab": 0})"}) {
        const json::value document = json::parse(text);
        const Members<Keys<"a", "b", "c">> members(document);
        EXPECT_EQ(members.text<"a">(Ascii), u"1") << text;
        EXPECT_EQ(members.text<"b">(Ascii), u"2") << text;
        EXPECT_EQ(members.text<"c">(Ascii), u"3") << text;
    }
}

TEST(Members, AbsentOptionalMembersAreNullOrEmpty) {
    const json::value document = json::object();
    const Members<Keys<"a">> members(document);
    EXPECT_EQ(members.value<"a">(), nullptr);
    EXPECT_EQ(members.optionalText<"a">(Utf8), u"");
}

TEST(Members, AbsentRequiredMembersThrow) {
    const json::value document = json::parse(R"({"b": ""})");
    const Members<Keys<"a", "b">> members(document);
    const auto throwsReason = ThrowsMessage<FormatError>("the required key \"a\" is missing");
    EXPECT_THAT([&] { members.required<"a">(); }, throwsReason);
    EXPECT_THAT([&] { members.text<"a">(Utf8); }, throwsReason);
}

TEST(Members, PresentMembersAreTheValuesOfTheDocument) {
    const json::value document = json::parse(R"({"b": null})");
    const Members<Keys<"a", "b">> members(document);
    EXPECT_EQ(members.value<"b">(), &document.at("b"));
    EXPECT_EQ(&members.required<"b">(), &document.at("b"));
}

TEST(Members, StringsAreReadWithTheirType) {
    const json::value document = json::parse(R"({"a": "é"})");
    const Members<Keys<"a">> members(document);
    EXPECT_EQ(members.text<"a">(Utf8), u"\u00E9");
    EXPECT_EQ(members.text<"a">(Ascii), u"\u00C3\u00A9");
    EXPECT_EQ(members.optionalText<"a">(Utf8), u"\u00E9");
    EXPECT_EQ(members.optionalText<"a">(Ascii), u"\u00C3\u00A9");
}

TEST(Members, StringsOfAnotherTypeThrow) {
    for (const auto& [value, type] : everyType()) {
        if (value.is_string())
            continue;
        const json::value document{{"a", value}};
        const Members<Keys<"a">> members(document);
        const auto throwsReason = ThrowsMessage<FormatError>("expected a string, found " + type);
        EXPECT_THAT([&] { members.text<"a">(Ascii); }, throwsReason);
        EXPECT_THAT([&] { members.optionalText<"a">(Ascii); }, throwsReason);
    }
}

TEST(Members, ThrowForAValueThatIsNotAnObject) {
    for (const auto& [value, type] : everyType()) {
        if (value.is_object())
            continue;
        EXPECT_THAT([&] { Members<Keys<"a">> members(value); },
                    ThrowsMessage<FormatError>("expected an object, found " + type));
    }
}

template <class E>
class WordMember : public testing::Test {};
using Enumerations = testing::Types<RefEntityType, SyntaxType, DeprecationStatus, FunctionType>;
TYPED_TEST_SUITE(WordMember, Enumerations);

template <class E>
typename E::Value readWord(const json::value& document) {
    return Members<Keys<"word">>(document).word<E, "word">();
}

TYPED_TEST(WordMember, IsTheValueOfAKnownString) {
    const auto last = static_cast<typename TypeParam::Value>(3);
    EXPECT_EQ(readWord<TypeParam>({{"word", TypeParam::enumToString(last)}}), last);
}

TYPED_TEST(WordMember, IsTheDefaultForAnAbsentKeyAndAnUnknownString) {
    for (const char* text : {"{}", R"({"word": "grafting"})", R"({"word": ""})",
                             R"({"word": "Function"})", R"({"word": "é"})"})
        EXPECT_EQ(readWord<TypeParam>(json::parse(text)), TypeParam::getDefaultValue()) << text;
}

TYPED_TEST(WordMember, IsTheDefaultForAnotherType) {
    for (const auto& [value, type] : everyType()) {
        if (value.is_string())
            continue;
        EXPECT_EQ(readWord<TypeParam>({{"word", value}}), TypeParam::getDefaultValue()) << type;
    }
}

TEST(ReadTexts, ReturnsTheStringsInFileOrderRepeatedOnesIncluded) {
    const json::value list = json::parse(R"(["b", "a", "é", "b"])");
    EXPECT_THAT(readTexts(&list, Utf8), testing::ElementsAre(u"b", u"a", u"\u00E9", u"b"));
    EXPECT_THAT(readTexts(nullptr, Utf8), testing::IsEmpty());
}

} // namespace
} // namespace docparser_tests
