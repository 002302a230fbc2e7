#include "tools/refdoc/check/text/RepeatedKeys.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

void PrintTo(const RepeatedKey& key, std::ostream* out) {
    *out << key.pointer << ' ' << key.earlier << ' ' << key.later;
}

} // namespace refdoc::check

namespace refdoc_tests {
namespace {

using namespace refdoc::check;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(RepeatedKeysTest, FindsKeysOfOneObject) {
    EXPECT_THAT(findRepeatedKeys(R"({"a": 1, "b": 2, "a": 3})"),
                ElementsAre(RepeatedKey{"/a", 1, 17}));
    EXPECT_THAT(findRepeatedKeys(R"({"": {}, "": []})"), ElementsAre(RepeatedKey{"/", 1, 9}));
}

TEST(RepeatedKeysTest, PairsNeighboursOfSeveral) {
    EXPECT_THAT(
        findRepeatedKeys(R"({"a":1,"a":2,"b":3,"a":4,"b":5})"),
        ElementsAre(RepeatedKey{"/a", 1, 7}, RepeatedKey{"/a", 7, 19}, RepeatedKey{"/b", 13, 25}));
}

TEST(RepeatedKeysTest, GivesThePointerOfTheMember) {
    EXPECT_THAT(findRepeatedKeys(R"([0, {"x/y": [[], {"m~n": 1, "m~n": 2}]}])"),
                ElementsAre(RepeatedKey{"/1/x~1y/1/m~0n", 18, 28}));
    EXPECT_THAT(findRepeatedKeys(R"({"a": {"b": 1, "b": 2}, "a": {"b": 3}})"),
                ElementsAre(RepeatedKey{"/a/b", 7, 15}, RepeatedKey{"/a", 1, 24}));
}

TEST(RepeatedKeysTest, ComparesKeysWithoutTheirEscapes) {
    EXPECT_THAT(findRepeatedKeys(R"({"a": 1, "\u0061": 2})"), ElementsAre(RepeatedKey{"/a", 1, 9}));
    EXPECT_THAT(findRepeatedKeys(R"({"🌳\"": 1, "\ud83c\udf33\u0022": 2})"),
                ElementsAre(RepeatedKey{"/🌳\"", 1, 14}));
}

TEST(RepeatedKeysTest, DistinguishesObjectsValuesAndCase) {
    EXPECT_THAT(findRepeatedKeys(R"([{"a": 1}, {"a": 2}])"), IsEmpty());
    EXPECT_THAT(findRepeatedKeys(R"({"a": {"a": {"a": 1}}})"), IsEmpty());
    EXPECT_THAT(findRepeatedKeys(R"({"a": "b", "b": ["a", "a"], "A": "a"})"), IsEmpty());
    EXPECT_THAT(findRepeatedKeys(R"({"a": "{\"b\": 1, \"b\": 2}"})"), IsEmpty());
    for (const std::string_view text : {"{}", "[]", R"("a")", " 1 ", R"(["a", "a"])"})
        EXPECT_THAT(findRepeatedKeys(text), IsEmpty()) << text;
}

TEST(RepeatedKeysTest, TheParserKeepsTheLaterMember) {
    const std::string text = R"({"a": 1, "a": 2})";
    const std::vector<RepeatedKey> repeated = findRepeatedKeys(text);
    ASSERT_THAT(repeated, SizeIs(1));
    EXPECT_EQ(boost::json::parse(text).at_pointer(repeated[0].pointer), 2);
    EXPECT_EQ(text.substr(repeated[0].later, 6), "\"a\": 2");
}

// If the time were quadratic, this would take hours.
TEST(RepeatedKeysTest, TakesLinearTimeForLargeObjects) {
    constexpr std::size_t kMembers = 500'000;
    std::string text = "{\"first\": 0";
    for (std::size_t i = 0; i < kMembers; ++i)
        text += ",\"key" + std::to_string(i) + "\":0";
    const std::size_t later = text.size() + 1;
    text += ",\"first\":0}";
    EXPECT_THAT(findRepeatedKeys(text), ElementsAre(RepeatedKey{"/first", 1, later}));
}

} // namespace
} // namespace refdoc_tests
