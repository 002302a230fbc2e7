// The memory for a hostile file must be proportional to its size.

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "tests/unit/docparser/AllocationCount.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using namespace reference::property;

std::string itemWith(const std::string& member) {
    return R"({"productName": "n", "baseCode": "b", "helpFolder": "f", "helpLocation": "l",
        "refItems": [{"href": "h", "refpurpose": "", )" +
           member + "}]}";
}

std::string repeat(const std::string& element, std::size_t count) {
    std::string list = "[";
    list.reserve(count * (element.size() + 1) + 1);
    for (std::size_t i = 0; i < count; ++i)
        list.append(element).append(i + 1 < count ? "," : "]");
    return list;
}

ResourceMap<RefItem> parse(const std::string& text) {
    return parseResourceText<RefItem>(text, u"p", parseRefItemSection, unobserved);
}

// The inputs of a file with blocks of name-value pairs.
std::vector<Input> readBlocks(std::size_t blocks, std::size_t pairsInEach) {
    const std::string pairs = repeat(R"({"name":"n","purpose":""})", pairsInEach);
    const auto sections =
        parse(itemWith(R"("inputs": )" + repeat(R"({"namevaluepairs":)" + pairs + '}', blocks)));
    return sections.at(u"f").items.at(u"h").at(0).getInputs();
}

TEST(ResourceTextCost, MemoryIsProportionalToTheBlocksOfNameValuePairs) {
    const AllocationCount few;
    EXPECT_EQ(readBlocks(500, 20).size(), 10'000U);
    const std::size_t fewBytes = few.bytes();
    const AllocationCount many;
    EXPECT_EQ(readBlocks(2'000, 20).size(), 40'000U);
    // Four times the blocks; reallocating for each of them would cost sixteen times as much.
    EXPECT_LT(many.bytes(), 8 * fewBytes);
}

TEST(ResourceTextCost, ReadsManyBlocksOfNameValuePairs) {
    const std::vector<Input> inputs = readBlocks(100'000, 1);
    EXPECT_EQ(inputs.size(), 100'000U);
    EXPECT_TRUE(inputs.back().getIsNameValuePair());
}

// The memory for a list of a million invalid elements, in addition to that for parsing.
void expectNoRoomMadeFor(const std::string& member, const std::string& pointer) {
    const std::string text = itemWith(member);
    const AllocationCount bare;
    {
        json::monotonic_resource arena(1024);
        const json::value document = json::parse(text, &arena);
    }
    const std::size_t bareBytes = bare.bytes();
    const std::size_t bareLargest = bare.largestBytes();

    const AllocationCount whole;
    try {
        parse(text);
        FAIL() << "nothing was thrown";
    } catch (const FormatError& error) {
        EXPECT_EQ(error.getPointer(), pointer);
    }
    EXPECT_LE(whole.largestBytes(), std::max(bareLargest, text.size() + 1));
    EXPECT_LT(whole.bytes(), bareBytes + text.size() + 2'000'000);
}

TEST(ResourceTextCost, ReservesNoMemoryForAMillionElementsThatAreNotRecords) {
    const std::string zeros = repeat("0", 1'000'000);
    for (const std::string key : {"refentity", "syntaxgroup", "inputs", "inputgroup", "outputs",
                                  "classpropertygroup", "seealso", "examples", "parameters"}) {
        SCOPED_TRACE(key);
        expectNoRoomMadeFor('"' + key + R"(": )" + zeros, "/refItems/0/" + key + "/0");
    }
}

TEST(ResourceTextCost, ReservesNoMemoryForAMillionPairsThatAreNotRecords) {
    const std::string zeros = repeat("0", 1'000'000);
    expectNoRoomMadeFor(R"("inputs": [{"namevaluepairs": )" + zeros + "}]",
                        "/refItems/0/inputs/0/namevaluepairs/0");
    expectNoRoomMadeFor(R"("inputgroup": [{"namevaluepairs": )" + zeros + "}]",
                        "/refItems/0/inputgroup/0/namevaluepairs/0");
    expectNoRoomMadeFor(R"("inputgroup": [{"title": "", "inputs": )" + zeros + "}]",
                        "/refItems/0/inputgroup/0/inputs/0");
}

TEST(ResourceTextCost, ReadsAnObjectWithManyUnknownKeysInOnePass) {
    std::string member = R"("k0": 0)";
    for (int i = 1; i < 100'000; ++i)
        member += R"(, "k)" + std::to_string(i) + R"(": 0)";
    const auto sections = parse(itemWith(member + R"(, "description": "d")"));
    EXPECT_EQ(sections.at(u"f").items.at(u"h").at(0).getDescription(), u"d");
}

} // namespace
} // namespace docparser_tests
