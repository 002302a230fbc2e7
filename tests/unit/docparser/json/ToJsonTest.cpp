#include "docparser/json/ToJson.hpp"

#include "docparser/json/RecordFields.hpp"

#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

namespace docparser_tests {
namespace {

struct Leaf {
    std::u16string text{};
    std::string_view word{};
    std::size_t number = 0;
    reference::property::SyntaxType::Value type = reference::property::SyntaxType::Command;
};

struct Tree {
    std::vector<Leaf> leaves{};
    std::optional<bool> isGreen{};
    std::map<std::u16string, std::string> names{};
};

} // namespace
} // namespace docparser_tests

namespace reference::json {

template <>
inline constexpr auto kFields<docparser_tests::Leaf> = std::tuple{
    Field{"text", &docparser_tests::Leaf::text}, Field{"word", &docparser_tests::Leaf::word},
    Field{"number", &docparser_tests::Leaf::number}, Field{"type", &docparser_tests::Leaf::type}};

template <>
inline constexpr auto kFields<docparser_tests::Tree> = std::tuple{
    Field{"leaves", &docparser_tests::Tree::leaves},
    Field{"isGreen", &docparser_tests::Tree::isGreen},
    Field{"names", &docparser_tests::Tree::names},
    Field{"height", [](const docparser_tests::Tree& tree) { return tree.leaves.size(); }}};

} // namespace reference::json

namespace docparser_tests {
namespace {

using reference::json::toJson;

TEST(ToJsonTest, MakesAnObjectOfTheFieldsInTheirOrder) {
    const Tree tree{.leaves = {{.text = u"木", .word = "w", .number = 3}},
                    .isGreen = true,
                    .names = {{u"é", "e"}, {u"b", "c"}}};
    EXPECT_EQ(boost::json::serialize(toJson(tree)),
              R"({"leaves":[{"text":"木","word":"w","number":3,"type":"command"}],)"
              R"("isGreen":true,"names":{"b":"c","é":"e"},"height":1})");
}

TEST(ToJsonTest, AbsentIsNullAndEmptyIsEmpty) {
    EXPECT_EQ(boost::json::serialize(toJson(Tree{})),
              R"({"leaves":[],"isGreen":null,"names":{},"height":0})");
}

TEST(ToJsonTest, UnpairedSurrogatesBecomeReplacementCharacters) {
    EXPECT_EQ(toJson(std::u16string{u'a', 0xD834, u'b', 0xDD1E}), "a\uFFFDb\uFFFD");
}

} // namespace
} // namespace docparser_tests
