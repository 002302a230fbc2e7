// An application with its own Boost.JSON passes values to the library, which may embed another
// copy.

#include "docparser/DocResourceParser.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <string>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using reference::docparser::DocResourceParser;
using Tools = DocResourceParser::ParsingTools;
using enum reference::docparser::StringParsingType;

TEST(OwnBoostJson, IsTheSharedLibraryNotTheEmbeddedCopy) {
    using Parse = json::value (*)(json::string_view, json::storage_ptr, const json::parse_options&);
    const Parse parse = &json::parse;
    Dl_info info{};
    ASSERT_NE(::dladdr(reinterpret_cast<void*>(parse), &info), 0);
    EXPECT_THAT(info.dli_fname, testing::HasSubstr("boost_json"));
}

TEST(OwnBoostJson, StringsOfEveryLengthAreRead) {
    json::monotonic_resource arena;
    for (std::size_t length = 0; length < 100; ++length) {
        const std::string bytes(length, 'x');
        const std::u16string expected(length, u'x');
        const json::value onHeap = json::string(bytes);
        const json::value inArena = json::parse('"' + bytes + '"', &arena);
        for (const json::value& value : {onHeap, inArena}) {
            EXPECT_EQ(Tools::getFluString(value, Ascii), expected);
            EXPECT_EQ(Tools::getFluString(value, Utf8), expected);
        }
    }
    EXPECT_EQ(Tools::getFluString(json::parse(R"("caf\u00E9")"), Utf8), u"caf\u00E9");
}

// Boost.JSON searches small objects linearly and large ones by hash.
TEST(OwnBoostJson, KeysAreFoundInObjectsOfEverySize) {
    json::object object;
    for (int size = 0; size < 200; ++size) {
        const std::string key = "key" + std::to_string(size);
        EXPECT_THROW(Tools::getFluString(object, key, Utf8), std::exception) << key;
        EXPECT_EQ(Tools::getFluStringWithFallback(object, key, Utf8), u"") << key;
        object[key] = key;
        for (int known = 0; known <= size; ++known) {
            const std::string number = std::to_string(known);
            EXPECT_EQ(Tools::getFluString(object, "key" + number, Utf8),
                      u"key" + std::u16string(number.begin(), number.end()));
        }
    }
}

TEST(OwnBoostJson, ArraysAndHeadersAreRead) {
    const json::value document = json::parse(R"({"refItems": [1, 2, 3], "productName": "Orchard",
        "baseCode": "OR", "helpFolder": "orchard", "helpLocation": "help"})");
    EXPECT_EQ(&Tools::getJsonArray(document, "refItems"), &document.at("refItems").as_array());
    EXPECT_EQ(&Tools::getJsonArray(document.at("refItems")), &document.at("refItems").as_array());
    const auto header = Tools::getHeaderInfo(document, u"product");
    EXPECT_EQ(header.getProductName(), u"Orchard");
    EXPECT_EQ(header.getHelpLocation(), u"help");
}

TEST(OwnBoostJson, ValuesOfOtherTypesAreRefused) {
    for (const char* text : {"null", "true", "1", "-1", "18446744073709551615", "1.5", "[]", "{}"})
        EXPECT_THROW(Tools::getFluString(json::parse(text), Utf8), std::exception) << text;
    for (const char* text : {"null", "1", "\"[]\"", "{}"})
        EXPECT_THROW(Tools::getJsonArray(json::parse(text)), std::exception) << text;
}

} // namespace
} // namespace docparser_tests
