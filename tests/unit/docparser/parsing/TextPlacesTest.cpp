#include "docparser/parsing/TextPlaces.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace reference::docparser {
namespace {

using testing::Each;
using testing::ElementsAre;

std::size_t offsetOf(std::string_view text, const std::string& pointer) {
    const auto found = findValues(text, {pointer}).at(0);
    return found ? found->value.offset : text.npos;
}

TEST(PlaceOfOffset, CountsLinesAndCharacters) {
    const std::string_view text = "aé\n𝑦b\n";
    EXPECT_EQ(placeOfOffset(text, 0), (TextPlace{0, 1, 1}));
    EXPECT_EQ(placeOfOffset(text, 1), (TextPlace{1, 1, 2}));
    EXPECT_EQ(placeOfOffset(text, 3), (TextPlace{3, 1, 3}));
    EXPECT_EQ(placeOfOffset(text, 4), (TextPlace{4, 2, 1}));
    EXPECT_EQ(placeOfOffset(text, 8), (TextPlace{8, 2, 2}));
    EXPECT_EQ(placeOfOffset(text, 10), (TextPlace{10, 3, 1}));
}

TEST(PlaceOfOffset, ReturnsTheColumnOfTheCharacterThatTheByteBelongsTo) {
    EXPECT_EQ(placeOfOffset("aéb", 2), (TextPlace{2, 1, 2}));
    EXPECT_EQ(placeOfOffset("a𝑦b", 4), (TextPlace{4, 1, 2}));
}

TEST(PlaceOfOffset, CountsUpToTheEndOfTheText) {
    EXPECT_EQ(placeOfOffset("ab", 100), (TextPlace{2, 1, 3}));
    EXPECT_EQ(placeOfOffset("", 0), TextPlace());
}

TEST(FindValues, FindsTheDocumentItself) {
    EXPECT_EQ(offsetOf(" \n {}", ""), 3U);
    EXPECT_EQ(findValues(" 1", {""}).at(0), (ValuePlace{{1, 1, 2}, std::nullopt}));
}

TEST(FindValues, FindsMembersAndElementsInOnePass) {
    const std::string_view text = R"({"a": [1, {"b": "x"}], "c": {"d": null}})";
    const auto places = findValues(text, {"/c/d", "/a/1/b", "/a/0", "/a", "/no", "/a/2"});
    ASSERT_EQ(places.size(), 6U);
    EXPECT_EQ(places[0]->value.offset, text.find("null"));
    EXPECT_EQ(places[0]->key->offset, text.find("\"d\""));
    EXPECT_EQ(places[1]->value.offset, text.find("\"x\""));
    EXPECT_EQ(places[2]->value.offset, text.find('1'));
    EXPECT_FALSE(places[2]->key);
    EXPECT_EQ(places[3]->value.offset, text.find('['));
    EXPECT_FALSE(places[4]);
    EXPECT_FALSE(places[5]);
}

TEST(FindValues, AcceptsAPointerTwice) {
    EXPECT_THAT(findValues("[7]", {"/0", "/0"}),
                Each(std::optional(ValuePlace{{1, 1, 2}, std::nullopt})));
}

TEST(FindValues, FindsTheLastOfEqualKeys) {
    EXPECT_EQ(offsetOf(R"({"a": 1, "a": 2})", "/a"), 14U);
    // A value of the first key is not found if the last one does not have it.
    EXPECT_EQ(offsetOf(R"({"a": {"b": 1}, "a": {}})", "/a/b"), std::string_view::npos);
}

TEST(FindValues, ReadsEscapesInKeysAndPointers) {
    EXPECT_EQ(offsetOf(R"({"a\"\u0062": 1})", "/a\"b"), 14U);
    EXPECT_EQ(offsetOf(R"({"a/b": 1, "c~d": 2, "~1": 3})", "/a~1b"), 8U);
    EXPECT_EQ(offsetOf(R"({"a/b": 1, "c~d": 2, "~1": 3})", "/c~0d"), 18U);
    EXPECT_EQ(offsetOf(R"({"a/b": 1, "c~d": 2, "~1": 3})", "/~01"), 27U);
    EXPECT_EQ(offsetOf(R"({"": {"": 5}})", "//"), 10U);
}

TEST(FindValues, SkipsStringsThatLookLikeStructure) {
    EXPECT_EQ(offsetOf(R"({"a": "}]\"\\", "b": [["]"], {"x": "{"}], "c": 1})", "/c"), 47U);
}

TEST(FindValues, AcceptsAnyText) {
    const std::string text = R"({"a": [1, {"b": "x\"y"}], "c\n": {"d": null, "e": [[[]]]}})";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const auto places =
            findValues(std::string_view(text).substr(0, length), {"/c\n/d", "/a/1/b", ""});
        for (const auto& place : places)
            EXPECT_LE(place ? place->value.offset : 0, length);
    }
    for (const char* noise : {"}", "]", ",", ":", "{,,,:}", "[,]", "\"\\", "{\"a\"", "nul", "\\"})
        EXPECT_FALSE(findValues(noise, {"/0/a/b"}).at(0)) << noise;
}

TEST(FindSyntaxProblem, IsEmptyForValidJson) {
    EXPECT_FALSE(findSyntaxProblem("{\"a\": [1, 2]}\n"));
}

TEST(FindSyntaxProblem, ReturnsPositionAndReason) {
    EXPECT_EQ(findSyntaxProblem("[1,\n  x]")->place, (TextPlace{6, 2, 3}));
    EXPECT_EQ(findSyntaxProblem("[1, 2")->place, (TextPlace{5, 1, 6}));
    EXPECT_EQ(findSyntaxProblem("[] []"), (SyntaxProblem{{3, 1, 4}, "extra data"}));
    EXPECT_EQ(findSyntaxProblem("\xEF\xBB\xBF{}")->place, TextPlace());
    EXPECT_EQ(findSyntaxProblem("")->place, TextPlace());
    EXPECT_FALSE(findSyntaxProblem("[1,\n  x]")->reason.empty());
}

TEST(FindSyntaxProblem, PointsToTheFirstByteOfAnIllFormedSequence) {
    const std::pair<std::string, std::size_t> cases[] = {
        {"[\"a\xE9\", 1]", 3},
        {"{\"k\xC3\": 1}", 3},
        {"[\"\xC3\xA9\xE3\x81\"]", 4},
        {"[\"a\\n\xC3\xA9\xE3\x41\"]", 7},
        {"[\"a string of more than 16 bytes: \xED\xA0\x80\"]", 34},
    };
    for (const auto& [text, offset] : cases)
        EXPECT_EQ(findSyntaxProblem(text)->place.offset, offset) << text;
}

TEST(FindSyntaxProblem, ReportsNestingOverTheLimit) {
    EXPECT_FALSE(findSyntaxProblem(std::string(32, '[') + std::string(32, ']')));
    const auto problem = findSyntaxProblem(std::string(33, '[') + std::string(33, ']'));
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->place.offset, 32U);
}

} // namespace
} // namespace reference::docparser
