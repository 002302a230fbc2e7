#include "docparser/parsing/JsonAccess.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/parsing/FormatError.hpp"
#include "tests/support/JsonValues.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using testing::ThrowsMessage;
using Tools = DocResourceParser::ParsingTools;
using enum StringParsingType;

std::u16string read(std::string_view bytes, StringParsingType type) {
    return getFluString(json::value(json::string(bytes)), type);
}

TEST(GetFluString, ReadsPlainBytesTheSameWithBothTypes) {
    EXPECT_EQ(read("abc", Ascii), u"abc");
    EXPECT_EQ(read("abc", Utf8), u"abc");
    EXPECT_EQ(read("", Ascii), u"");
    EXPECT_EQ(read("", Utf8), u"");
}

TEST(GetFluString, DecodesUtf8StringsAndWidensAsciiStrings) {
    EXPECT_EQ(read("caf\xC3\xA9", Utf8), u"caf\u00E9");
    EXPECT_EQ(read("caf\xC3\xA9", Ascii), u"caf\u00C3\u00A9");
    EXPECT_EQ(read("\xF0\x9F\x8C\xB3", Utf8), u"\U0001F333");
    EXPECT_EQ(read("\xF0\x9F\x8C\xB3", Ascii), u"\u00F0\u009F\u008C\u00B3");
}

TEST(GetFluString, WidensEveryByteOfAnAsciiString) {
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

TEST(GetFluString, ReadsEverySingleByteOfAUtf8String) {
    for (int byte = 0; byte < 256; ++byte) {
        // A byte above 0x7F is not well-formed on its own.
        const char16_t expected = byte < 0x80 ? static_cast<char16_t>(byte) : u'\uFFFD';
        EXPECT_EQ(read(std::string(1, static_cast<char>(byte)), Utf8), std::u16string(1, expected))
            << byte;
    }
}

TEST(GetFluString, KeepsNulAndDelInAUtf8String) {
    EXPECT_EQ(read(std::string_view("a\0b", 3), Utf8), std::u16string(u"a\0b", 3));
    EXPECT_EQ(read("a\x7F"
                   "b",
                   Utf8),
              u"a\u007Fb");
    EXPECT_EQ(read(std::string_view("\0\xC3\xA9\x7F", 4), Utf8),
              std::u16string(u"\0\u00E9\u007F", 3));
}

TEST(GetFluString, ReplacesEachMaximalIllFormedSequenceOfAUtf8String) {
    EXPECT_EQ(read("\xE3\x41", Utf8), u"\uFFFDA");
    EXPECT_EQ(read("a\xE3\x81", Utf8), u"a\uFFFD");
    EXPECT_EQ(read("\xFF\xFE", Utf8), u"\uFFFD\uFFFD");
}

TEST(GetFluString, ReadsLongStrings) {
    const std::string bytes(100'000, 'x');
    EXPECT_EQ(read(bytes, Ascii), std::u16string(100'000, u'x'));
    EXPECT_EQ(read(bytes, Utf8), std::u16string(100'000, u'x'));
    EXPECT_EQ(read(bytes + "\xC3\xA9", Utf8), std::u16string(100'000, u'x') + u'\u00E9');
}

TEST(GetFluString, ThrowsForEveryOtherTypeAndNamesIt) {
    for (const auto& [value, type] : everyType()) {
        if (value.is_string())
            continue;
        const auto throwsReason = ThrowsMessage<FormatError>("expected a string, found " + type);
        const json::object object{{"key", value}};
        EXPECT_THAT([&value = value] { getFluString(value, Utf8); }, throwsReason);
        EXPECT_THAT([&] { getFluString(object, "key", Ascii); }, throwsReason);
        EXPECT_THAT([&] { getFluStringWithFallback(object, "key", Utf8); }, throwsReason);
    }
}

TEST(GetFluString, FindsTheStringUnderAKey) {
    const json::value document = json::parse(R"({"name": "é"})");
    EXPECT_EQ(getFluString(document.as_object(), "name", Utf8), u"\u00E9");
    EXPECT_EQ(getFluString(document.as_object(), "name", Ascii), u"\u00C3\u00A9");
}

TEST(GetFluString, ThrowsForAMissingKeyAndNamesIt) {
    const json::value document = json::parse(R"({"outer": {"Name": ""}})");
    try {
        getFluString(document.at("outer").as_object(), "name", Utf8);
        FAIL() << "nothing was thrown";
    } catch (FormatError& error) {
        EXPECT_EQ(error.getReason(), "the required key \"name\" is missing");
        error.locate(document);
        EXPECT_EQ(error.getPointer(), "/outer");
    }
}

TEST(GetFluStringWithFallback, ReturnsTheStringOrAnEmptyOneForAMissingKey) {
    const json::value document = json::parse(R"({"name": "é"})");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "missing", Utf8), u"");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "", Ascii), u"");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "name", Utf8), u"\u00E9");
    EXPECT_EQ(getFluStringWithFallback(document.as_object(), "name", Ascii), u"\u00C3\u00A9");
}

TEST(GetJsonArray, ReturnsTheArrayOfTheDocument) {
    const json::value document = json::parse(R"({"list": [1, 2]})");
    EXPECT_EQ(&getJsonArray(document.at("list")), &document.at("list").as_array());
    EXPECT_EQ(&getJsonArray(document, "list"), &document.at("list").as_array());
}

TEST(GetJsonArray, ThrowsForEveryOtherTypeAndNamesIt) {
    for (const auto& [value, type] : everyType()) {
        if (value.is_array())
            continue;
        const auto throwsReason = ThrowsMessage<FormatError>("expected an array, found " + type);
        const json::value object{{"key", value}};
        EXPECT_THAT([&value = value] { getJsonArray(value); }, throwsReason);
        EXPECT_THAT([&] { getJsonArray(object, "key"); }, throwsReason);
    }
}

TEST(GetJsonArray, ThrowsForAMissingKeyAndForAValueThatIsNotAnObject) {
    EXPECT_THAT([] { getJsonArray(json::object(), "list"); },
                ThrowsMessage<FormatError>("the required key \"list\" is missing"));
    EXPECT_THAT([] { getJsonArray(json::array(), "list"); },
                ThrowsMessage<FormatError>("expected an object, found an array"));
}

TEST(GetJsonObject, ReturnsTheObjectOfTheDocument) {
    const json::value document = json::object();
    EXPECT_EQ(&getJsonObject(document), &document.as_object());
}

TEST(GetJsonObject, ThrowsForEveryOtherTypeAndNamesIt) {
    for (const auto& [value, type] : everyType()) {
        if (value.is_object())
            continue;
        EXPECT_THAT([&value = value] { getJsonObject(value); },
                    ThrowsMessage<FormatError>("expected an object, found " + type));
    }
}

TEST(ParsingTools, ReadStringsAndArraysAsTheParsersDo) {
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

} // namespace
} // namespace docparser_tests
