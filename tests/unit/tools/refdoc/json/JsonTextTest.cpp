#include "tools/refdoc/json/JsonText.hpp"

#include "docparser/json/ToJson.hpp"
#include "platform/i18n/Converter.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <algorithm>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using refdoc::toIndentedJson;
using refdoc::toJsonLine;

const json::value kDocument{
    {"list", json::array{"a", true, nullptr, json::array{}, json::object{}}}, {"number", 17}};

TEST(JsonTextTest, IndentsByTwoSpacesPerLevel) {
    EXPECT_EQ(toIndentedJson(kDocument), "{\n"
                                         "  \"list\": [\n"
                                         "    \"a\",\n"
                                         "    true,\n"
                                         "    null,\n"
                                         "    [],\n"
                                         "    {}\n"
                                         "  ],\n"
                                         "  \"number\": 17\n"
                                         "}\n");
}

TEST(JsonTextTest, PrintsALineWithoutSpaces) {
    EXPECT_EQ(toJsonLine(kDocument), "{\"list\":[\"a\",true,null,[],{}],\"number\":17}\n");
}

TEST(JsonTextTest, PrintsAnEmptyDocumentAndAScalar) {
    EXPECT_EQ(toIndentedJson(json::object{}), "{}\n");
    EXPECT_EQ(toIndentedJson("a"), "\"a\"\n");
}

// What a terminal obeys, and what a reader may take for the end of a line.
bool isControl(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F) || unit == 0x2028 || unit == 0x2029;
}

TEST(JsonTextTest, EveryCharacterCanBeParsedBackAndNoControlIsPrinted) {
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string string{u'<', static_cast<char16_t>(unit), u'>'};
        const json::object document{{fl::i18n::to_string(string), reference::json::toJson(string)}};
        for (const std::string& text : {toIndentedJson(document), toJsonLine(document)}) {
            ASSERT_EQ(json::parse(text), document) << text;
            std::u16string printed = fl::i18n::to_ustring(text);
            std::erase(printed, u'\n');
            ASSERT_TRUE(std::ranges::none_of(printed, isControl)) << text;
        }
    }
}

TEST(JsonTextTest, EscapesOnlyTheCharactersThatNeedIt) {
    EXPECT_EQ(toJsonLine("\u007e\u007f\u0080\u009f\u00a0\u2027\u2028\u2029\u202a…é木🌳"),
              "\"~\\u007f\\u0080\\u009f\u00a0\u2027\\u2028\\u2029\u202a…é木🌳\"\n");
}

} // namespace
} // namespace refdoc_tests
