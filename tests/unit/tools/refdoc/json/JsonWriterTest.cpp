#include "tools/refdoc/json/JsonWriter.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::JsonWriter;

TEST(JsonWriterTest, IndentsByTwoSpacesALevel) {
    JsonWriter json;
    json.beginObject();
    json.key("list");
    json.beginArray();
    json.text(u"a");
    json.boolean(true);
    json.beginArray();
    json.endArray();
    json.beginObject();
    json.endObject();
    json.endArray();
    json.member("text", u"b");
    json.endObject();
    EXPECT_EQ(json.take(), "{\n"
                           "  \"list\": [\n"
                           "    \"a\",\n"
                           "    true,\n"
                           "    [],\n"
                           "    {}\n"
                           "  ],\n"
                           "  \"text\": \"b\"\n"
                           "}\n");
}

TEST(JsonWriterTest, EveryTextComesBackFromAParser) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const bool isSurrogate = unit >= 0xD800 && unit <= 0xDFFF;
        const std::u16string text{u'<', static_cast<char16_t>(unit), u'>'};
        JsonWriter json;
        json.text(text);
        const std::string document = json.take();
        for (const char byte : document.substr(0, document.size() - 1))
            ASSERT_TRUE(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F) << unit;
        boost::json::error_code error;
        const boost::json::value value = boost::json::parse(document, error);
        ASSERT_FALSE(error) << unit;
        JsonWriter again;
        again.text(isSurrogate ? u"<\xFFFD>" : text);
        ASSERT_EQ(document, again.take()) << unit;
        ASSERT_TRUE(value.is_string()) << unit;
        const auto& back = value.as_string();
        ASSERT_EQ(back.front(), '<') << unit;
        ASSERT_EQ(back.back(), '>') << unit;
    }
}

} // namespace
} // namespace refdoc_tests
