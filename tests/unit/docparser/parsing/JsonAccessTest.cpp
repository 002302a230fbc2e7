#include "docparser/parsing/JsonAccess.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/parsing/Enumerations.hpp"
#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/Members.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using namespace reference::property;
using Tools = DocResourceParser::ParsingTools;
using enum StringParsingType;

constexpr char kEveryKind[] = R"({"null": null, "bool": true, "int64": 1,
    "uint64": 18446744073709551615, "double": 1.5, "string": "text", "array": [], "object": {}})";

std::u16string read(std::string_view bytes, StringParsingType type) {
    return getFluString(json::value(json::string(bytes)), type);
}

template <class Call>
FormatError failureOf(Call call) {
    try {
        call();
    } catch (const FormatError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {nullptr, ""};
}

TEST(GetFluString, ReadsPlainTextAlikeInBothWays) {
    EXPECT_EQ(read("abc", Ascii), u"abc");
    EXPECT_EQ(read("abc", Utf8), u"abc");
    EXPECT_EQ(read("", Ascii), u"");
    EXPECT_EQ(read("", Utf8), u"");
}

TEST(GetFluString, DecodesTextForPeopleAndWidensTheBytesOfIdentifiers) {
    EXPECT_EQ(read("caf\xC3\xA9", Utf8), u"caf\u00E9");
    EXPECT_EQ(read("caf\xC3\xA9", Ascii), u"caf\u00C3\u00A9");
    EXPECT_EQ(read("\xF0\x9F\x8C\xB3", Utf8), u"\U0001F333");
    EXPECT_EQ(read("\xF0\x9F\x8C\xB3", Ascii), u"\u00F0\u009F\u008C\u00B3");
}

TEST(GetFluString, WidensEveryByteValueOfAnIdentifier) {
    std::string bytes;
    std::u16string expected;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
        expected += static_cast<char16_t>(byte);
        EXPECT_EQ(read(std::string(1, static_cast<char>(byte)), Ascii),
                  std::u16string(1, static_cast<char16_t>(byte)));
    }
    EXPECT_EQ(read(bytes, Ascii), expected);
}

TEST(GetFluString, ReadsEverySingleByteOfTextForPeople) {
    for (int byte = 0; byte < 256; ++byte) {
        // A byte above 0x7F is no text by itself.
        const char16_t expected = byte < 0x80 ? static_cast<char16_t>(byte) : u'\uFFFD';
        EXPECT_EQ(read(std::string(1, static_cast<char>(byte)), Utf8), std::u16string(1, expected))
            << byte;
    }
}

TEST(GetFluString, KeepsNulAndDelInTextForPeople) {
    EXPECT_EQ(read(std::string_view("a\0b", 3), Utf8), std::u16string(u"a\0b", 3));
    EXPECT_EQ(read("a\x7F"
                   "b",
                   Utf8),
              u"a\u007Fb");
    EXPECT_EQ(read(std::string_view("\0\xC3\xA9\x7F", 4), Utf8),
              std::u16string(u"\0\u00E9\u007F", 3));
}

TEST(GetFluString, ReplacesEachMaximalIllFormedSequenceOfTextForPeopleByOneCharacter) {
    EXPECT_EQ(read("\xE3\x41", Utf8), u"\uFFFDA");
    EXPECT_EQ(read("a\xE3\x81", Utf8), u"a\uFFFD");
    EXPECT_EQ(read("\xFF\xFE", Utf8), u"\uFFFD\uFFFD");
}

TEST(GetFluString, ReadsLongTextsWhole) {
    const std::string bytes(100'000, 'x');
    EXPECT_EQ(read(bytes, Ascii), std::u16string(100'000, u'x'));
    EXPECT_EQ(read(bytes, Utf8), std::u16string(100'000, u'x'));
    EXPECT_EQ(read(bytes + "\xC3\xA9", Utf8), std::u16string(100'000, u'x') + u'\u00E9');
}

TEST(GetFluString, RefusesEveryOtherKindAndNamesIt) {
    const json::value document = json::parse(kEveryKind);
    for (const json::key_value_pair& member : document.as_object()) {
        if (member.value().is_string())
            continue;
        const std::string reason = "string expected, " + std::string(member.key()) + " found";
        EXPECT_EQ(failureOf([&] { getFluString(member.value(), Utf8); }).getReason(), reason);
        EXPECT_EQ(
            failureOf([&] { getFluString(document.as_object(), member.key(), Ascii); }).getReason(),
            reason);
        EXPECT_EQ(failureOf([&] {
                      getFluStringWithFallback(document.as_object(), member.key(), Utf8);
                  }).getReason(),
                  reason);
    }
}

TEST(GetFluString, FindsTheStringUnderAKey) {
    const json::value document = json::parse(R"({"name": "é"})");
    EXPECT_EQ(getFluString(document.as_object(), "name", Utf8), u"\u00E9");
    EXPECT_EQ(getFluString(document.as_object(), "name", Ascii), u"\u00C3\u00A9");
}

TEST(GetFluString, RefusesAnObjectWithoutTheKey) {
    const json::value document = json::parse(R"({"outer": {"Name": ""}})");
    FormatError error =
        failureOf([&] { getFluString(document.at("outer").as_object(), "name", Utf8); });
    EXPECT_EQ(error.getReason(), "the key \"name\" is missing");
    error.locate(document);
    EXPECT_EQ(error.getPointer(), "/outer");
}

TEST(GetFluStringWithFallback, IsEmptyWithoutTheKeyAndReadsItOtherwise) {
    const json::value document = json::parse(R"({"name": "é"})");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "missing", Utf8), u"");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "", Ascii), u"");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "name", Utf8), u"\u00E9");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "name", Ascii), u"\u00C3\u00A9");
}

TEST(GetJsonArray, HandsOutTheArrayItself) {
    const json::value document = json::parse(R"({"list": [1, 2]})");
    EXPECT_EQ(&getJsonArray(document.at("list")), &document.at("list").as_array());
    EXPECT_EQ(&getJsonArray(document, "list"), &document.at("list").as_array());
}

TEST(GetJsonArray, RefusesEveryOtherKindAndNamesIt) {
    const json::value document = json::parse(kEveryKind);
    for (const json::key_value_pair& member : document.as_object()) {
        if (member.value().is_array())
            continue;
        const std::string reason = "array expected, " + std::string(member.key()) + " found";
        EXPECT_EQ(failureOf([&] { getJsonArray(member.value()); }).getReason(), reason);
        EXPECT_EQ(failureOf([&] { getJsonArray(document, member.key()); }).getReason(), reason);
    }
}

TEST(GetJsonArray, RefusesAnObjectWithoutTheKeyAndWhatIsNoObject) {
    const json::value document = json::parse(R"([{}, []])");
    FormatError missing = failureOf([&] { getJsonArray(document.at(0), "list"); });
    missing.locate(document);
    EXPECT_STREQ(missing.what(), "/0: the key \"list\" is missing");
    FormatError noObject = failureOf([&] { getJsonArray(document.at(1), "list"); });
    noObject.locate(document);
    EXPECT_STREQ(noObject.what(), "/1: object expected, array found");
}

TEST(GetJsonObject, HandsOutTheObjectItselfAndRefusesEveryOtherKind) {
    const json::value document = json::parse(kEveryKind);
    EXPECT_EQ(&getJsonObject(document), &document.as_object());
    for (const json::key_value_pair& member : document.as_object()) {
        if (member.value().is_object())
            continue;
        EXPECT_EQ(failureOf([&] { getJsonObject(member.value()); }).getReason(),
                  "object expected, " + std::string(member.key()) + " found");
    }
}

TEST(ParsingTools, ReadAsTheParsersDo) {
    const json::value document = json::parse(R"({"name": "é", "list": []})");
    const json::object& object = document.as_object();
    EXPECT_EQ(Tools::getFluString(object.at("name"), Tools::StringParsingType::Utf8), u"\u00E9");
    EXPECT_EQ(Tools::getFluString(object, "name", Tools::StringParsingType::Ascii),
              u"\u00C3\u00A9");
    EXPECT_EQ(Tools::getFluStringWithFallback(object, "missing", Utf8), u"");
    EXPECT_EQ(&Tools::getJsonArray(object.at("list")), &object.at("list").as_array());
    EXPECT_EQ(&Tools::getJsonArray(document, "list"), &object.at("list").as_array());
    EXPECT_THROW(Tools::getFluString(object, "missing", Utf8), std::exception);
    EXPECT_THROW(Tools::getFluString(object.at("list"), Utf8), std::exception);
    EXPECT_THROW(Tools::getJsonArray(object.at("name")), std::exception);
    EXPECT_THROW(Tools::getJsonArray(document, "missing"), std::exception);
}

// --- the members of an object that a reader knows

TEST(Members, AreFoundInWhateverOrderTheFileHasThem) {
    static constexpr auto kKeys = keys("a", "b", "c");
    for (const char* text :
         {R"({"a": "1", "b": "2", "c": "3"})", R"({"c": "3", "b": "2", "a": "1"})",
          R"({"x": 0, "b": "2", "y": 0, "a": "1", "A": 0, "c": "3", "ab": 0})"}) {
        const json::value document = json::parse(text);
        const Members members(document, kKeys);
        EXPECT_EQ(members.text(0, Ascii), u"1") << text;
        EXPECT_EQ(members.text(1, Ascii), u"2") << text;
        EXPECT_EQ(members.text(2, Ascii), u"3") << text;
    }
}

TEST(Members, ThatTheObjectLacksAreNullEmptyOrRefused) {
    static constexpr auto kKeys = keys("a", "b");
    const json::value document = json::parse(R"({"b": null})");
    const Members members(document, kKeys);
    EXPECT_EQ(members[0], nullptr);
    EXPECT_EQ(members[1], &document.at("b"));
    EXPECT_EQ(&members.required(1), &document.at("b"));
    EXPECT_EQ(members.optionalText(0, Utf8), u"");
    EXPECT_EQ(failureOf([&] { members.text(0, Utf8); }).getReason(), "the key \"a\" is missing");
    EXPECT_EQ(failureOf([&] { members.required(0); }).getReason(), "the key \"a\" is missing");
    EXPECT_EQ(failureOf([&] { members.optionalText(1, Utf8); }).getReason(),
              "string expected, null found");
}

template <class E>
class WordMember : public testing::Test {};
using Enumerations = testing::Types<RefEntityType, SyntaxType, DeprecationStatus, FunctionType>;
TYPED_TEST_SUITE(WordMember, Enumerations);

TYPED_TEST(WordMember, IsTheDefaultWhenItIsAbsentUnknownOrNoString) {
    static constexpr auto kKeys = keys("word");
    const auto last = static_cast<typename TypeParam::Value>(3);
    const json::value known{{"word", TypeParam::enumToString(last)}};
    EXPECT_EQ(Members(known, kKeys).template word<TypeParam>(0), last);

    for (const char* text :
         {"{}", R"({"word": "grafting"})", R"({"word": ""})", R"({"word": "Function"})",
          R"({"word": "é"})", R"({"word": null})", R"({"word": true})", R"({"word": 3})",
          R"({"word": 1.5})", R"({"word": []})", R"({"word": {}})"}) {
        const json::value document = json::parse(text);
        EXPECT_EQ(Members(document, kKeys).template word<TypeParam>(0),
                  TypeParam::getDefaultValue())
            << text;
    }
}

} // namespace
} // namespace docparser_tests
