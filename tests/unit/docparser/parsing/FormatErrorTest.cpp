#include "docparser/parsing/FormatError.hpp"

#include <boost/json/parse.hpp>
#include <boost/json/value.hpp>
#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <type_traits>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using reference::docparser::FormatError;

static_assert(std::is_base_of_v<std::exception, FormatError>);

TEST(FormatError, HasOnlyItsReasonBeforeItIsLocated) {
    const json::value document = json::parse("{}");
    const FormatError error(&document, "something is wrong");
    EXPECT_EQ(error.getPointer(), "");
    EXPECT_EQ(error.getReason(), "something is wrong");
    EXPECT_STREQ(error.what(), "something is wrong");
}

TEST(FormatError, HasPointerAndReasonAfterItIsLocated) {
    const json::value document = json::parse(R"({"a": {"b": [1, {"c": null}]}})");
    FormatError error(&document.at_pointer("/a/b/1/c"), "something is wrong");
    error.locate(document);
    EXPECT_EQ(error.getPointer(), "/a/b/1/c");
    EXPECT_EQ(error.getReason(), "something is wrong");
    EXPECT_STREQ(error.what(), "/a/b/1/c: something is wrong");
}

TEST(FormatError, FindsEveryValueOfADocument) {
    const json::value document =
        json::parse(R"({"": 0, "a/b": 1, "m~n": 2, "~1": 3, "/": {"~": 4}, "é": [5, [6, {}], []],)"
                    R"( "list": [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11]})");
    for (const char* pointer :
         {"", "/", "/a~1b", "/m~0n", "/~01", "/~1", "/~1/~0", "/é", "/é/0", "/é/1", "/é/1/0",
          "/é/1/1", "/é/2", "/list", "/list/9", "/list/10", "/list/11"}) {
        FormatError error(&document.at_pointer(pointer), "reason");
        error.locate(document);
        EXPECT_EQ(error.getPointer(), pointer);
        EXPECT_EQ(error.what(), std::string(pointer) + ": reason");
    }
}

TEST(FormatError, FindsObjectsByTheirAddress) {
    const json::value document = json::parse(R"({"list": [{}, {"inner": {}}]})");
    for (const char* pointer : {"", "/list/0", "/list/1", "/list/1/inner"}) {
        FormatError error(&document.at_pointer(pointer).as_object(), "reason");
        error.locate(document);
        EXPECT_EQ(error.getPointer(), pointer);
    }
}

TEST(FormatError, IgnoresADocumentThatDoesNotContainIt) {
    const json::value document = json::parse(R"({"a": [{}]})");
    const json::value other = json::parse(R"({"a": [{}]})");
    FormatError error(&other.at_pointer("/a/0"), "reason");
    error.locate(document);
    EXPECT_EQ(error.getPointer(), "");
    EXPECT_STREQ(error.what(), "reason");

    error.locate(other);
    EXPECT_STREQ(error.what(), "/a/0: reason");
}

} // namespace
} // namespace docparser_tests
