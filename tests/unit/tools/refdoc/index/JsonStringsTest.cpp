#include "tools/refdoc/index/JsonStrings.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/json/JsonText.hpp"

#include <gtest/gtest.h>

#include <string>

namespace refdoc::site {
namespace {

std::string jsonOf(std::u16string_view characters) {
    std::string json;
    appendJson(characters, json);
    return json;
}

TEST(JsonStringsTest, CharactersAreAppended) {
    std::string json = "[\"";
    appendJson(u"gr\u00E4ft", json);
    EXPECT_EQ(json, "[\"gr\u00E4ft");
}

TEST(JsonStringsTest, EveryCodeUnitIsPrintedAsInOtherJson) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const std::u16string characters = {u'a', static_cast<char16_t>(unit), u'\u6728'};
        const std::string line = toJsonLine(boost::json::value(fl::i18n::to_string(characters)));
        ASSERT_EQ('"' + jsonOf(characters) + "\"\n", line) << unit;
    }
}

TEST(JsonStringsTest, NoCodeUnitTakesMoreThanItsSize) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const auto character = static_cast<char16_t>(unit);
        ASSERT_LE(jsonOf({&character, 1}).size(), sizeInJson(character)) << unit;
    }
    EXPECT_LE(jsonOf(u"\U00010400").size(), sizeInJson(u'\xD801') + sizeInJson(u'\xDC00'));
}

TEST(JsonStringsTest, LineSeparatorsTakeSixBytes) {
    EXPECT_EQ(jsonOf(u"\u2028\u2029"), "\\u2028\\u2029");
    EXPECT_EQ(sizeInJson(u'\u2028'), 6U);
    EXPECT_EQ(sizeInJson(u'\u2029'), 6U);
}

} // namespace
} // namespace refdoc::site
