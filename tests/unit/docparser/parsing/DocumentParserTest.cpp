#include "docparser/parsing/DocumentParser.hpp"

#include <boost/json/parse.hpp>
#include <boost/system/system_error.hpp>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference::docparser {
namespace {

namespace json = boost::json;

using Outcome = std::pair<json::value, json::error_code>;

Outcome parsed(const std::string& text) {
    json::monotonic_resource arena;
    try {
        return {json::value(parseDocument(text, arena), {}), {}};
    } catch (const boost::system::system_error& error) {
        return {{}, error.code()};
    }
}

Outcome parsedByDefault(const std::string& text) {
    Outcome outcome;
    outcome.first = json::parse(text, outcome.second);
    return outcome;
}

// Prefixes that place a case inside the prevalidated part of the text, after it, or after text that
// the parser itself validates.
std::vector<std::string> textsWith(const std::string& array) {
    std::vector<std::string> texts;
    for (const std::string start : {"", "\xC3\xA9"}) {
        for (const std::size_t length : {0U, 40U, 1000U, 1020U, 3000U})
            texts.push_back("[\"" + start + std::string(length, 'x') + "\", " + array);
    }
    return texts;
}

// Sequences that are ill-formed in every context.
const std::vector<std::string> kIllFormed = {"\x80",
                                             "\xBF",
                                             "\xC0\xAF",
                                             "\xC1\xBF",
                                             "\xE0\x80\xAF",
                                             "\xE0\x9F\xBF",
                                             "\xED\xA0\x80",
                                             "\xED\xBF\xBF",
                                             "\xF0\x80\x80\xAF",
                                             "\xF0\x8F\xBF\xBF",
                                             "\xF4\x90\x80\x80",
                                             "\xF5\x80\x80\x80",
                                             "\xFF",
                                             "\xC3",
                                             "\xE3\x81",
                                             "\xF0\x9F\x8C",
                                             "\xE3\x41"};

TEST(ParseDocument, ReturnsTheDocumentInTheArena) {
    json::monotonic_resource arena;
    const json::value document = parseDocument("{\"caf\xC3\xA9\": [1, \"\xE6\xA8\xB9\"]}", arena);
    EXPECT_EQ(document, json::value({{"caf\xC3\xA9", {1, "\xE6\xA8\xB9"}}}));
    EXPECT_EQ(document.storage().get(), &arena);
}

TEST(ParseDocument, AcceptsWellFormedTextInEveryPosition) {
    for (const std::string sequence :
         {"x", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        for (const std::string& text :
             textsWith("{\"" + sequence + R"(": "\n)" + sequence + "\"}]"))
            EXPECT_EQ(parsed(text), Outcome(json::parse(text), {})) << text;
    }
}

TEST(ParseDocument, ReportsIllFormedTextAsTheDefaultOptionsDo) {
    for (const std::string& sequence : kIllFormed) {
        for (const std::string& array :
             {'"' + sequence + "\"]", "\"a\\n" + sequence + "b\"]", "{\"" + sequence + "\": 1}]",
              '"' + sequence, "1]" + sequence, sequence + "1]"}) {
            for (const std::string& text : textsWith(array)) {
                const Outcome outcome = parsed(text);
                EXPECT_TRUE(outcome.second) << text;
                EXPECT_EQ(outcome, parsedByDefault(text)) << text;
            }
        }
    }
}

TEST(ParseDocument, ReportsEveryOtherErrorAsTheDefaultOptionsDo) {
    for (const std::string array : {"", "1", R"("\uD83C"])", R"("\uDF33"])", "\"\x01\"]",
                                    R"("\x"])", "1] 2", "\xC3\xA9]", "1,]", "/**/1]", "\""}) {
        for (const std::string& text : textsWith(array)) {
            const Outcome outcome = parsed(text);
            EXPECT_TRUE(outcome.second) << text;
            EXPECT_EQ(outcome, parsedByDefault(text)) << text;
        }
    }
    EXPECT_EQ(parsed("\xEF\xBB\xBF[]"), parsedByDefault("\xEF\xBB\xBF[]"));
    EXPECT_EQ(parsed(""), parsedByDefault(""));
}

TEST(ParseDocument, EnforcesTheLimitOnNesting) {
    const auto nested = [](std::size_t depth) {
        return "[\"\xC3\xA9\", " + std::string(depth - 1, '[') + std::string(depth, ']');
    };
    EXPECT_EQ(parsed(nested(32)).second, json::error_code());
    EXPECT_EQ(parsed(nested(33)).second, json::error::too_deep);
}

} // namespace
} // namespace reference::docparser
