#include "tools/refdoc/index/IndexTable.hpp"

#include "tests/unit/tools/refdoc/index/IndexFiles.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace refdoc::site {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::string digitsOf(std::uint32_t number) {
    std::string digits;
    appendNumber(number, digits);
    return digits;
}

TEST(IndexTableTest, NumbersHaveDigitsThatJsonDoesNotEscape) {
    EXPECT_EQ(digitsOf(0), "#");
    EXPECT_EQ(digitsOf(44), "O");
    EXPECT_EQ(digitsOf(45), "Q#");
    EXPECT_EQ(digitsOf(45 * 45 - 1), "}O");
    for (std::uint32_t number = 0; number < 100'000; ++number)
        ASSERT_EQ(digitsOf(number).find_first_of("\"\\ "), std::string::npos) << number;
}

TEST(IndexTableTest, TableSharesTheStartOfKeys) {
    Files files;
    const AddFile addFile = addTo(files);
    IndexTable table("list", kLargestPart, addFile);
    EXPECT_EQ(table.add(u"graft", "1"), 0U);
    EXPECT_EQ(table.add(u"grass", "2"), 0U);
    EXPECT_EQ(table.add(u"gr\u00E4\"", "3"), 0U);
    EXPECT_EQ(table.finish(), R"(["g"])");
    EXPECT_THAT(files, ElementsAre(Pair("list-d0.js", "refdocIndex(\"list-d0\",  37,[0,\"g\"]);\n"),
                                   Pair("list0.js", "refdocIndex(\"list0\",  58,[\"#1 graft\",\"&2 "
                                                    "ss\",\"%3 \u00E4\\\"\"]);\n")));
}

TEST(IndexTableTest, TableWithoutRowsHasNoFiles) {
    Files files;
    const AddFile addFile = addTo(files);
    EXPECT_EQ(IndexTable("list", kLargestPart, addFile).finish(), "[]");
    EXPECT_THAT(files, ElementsAre());
}

TEST(IndexTableTest, SeparatorsAreAsShortAsPossible) {
    Files files;
    const AddFile addFile = addTo(files);
    IndexTable table("list", kLargestPart, addFile);
    const std::string numbers(kLargestPart / 2, '#');
    EXPECT_EQ(table.add(u"graft", numbers), 0U);
    EXPECT_EQ(table.add(u"grass", numbers), 1U);
    EXPECT_EQ(table.add(u"grass", numbers), 2U);
    EXPECT_EQ(table.add(u"prune", numbers), 3U);
    table.finish();
    EXPECT_EQ(files["list-d0.js"],
              "refdocIndex(\"list-d0\",  56,[0,\"g\",\"gras\",\"grass\",\"p\"]);\n");
}

TEST(IndexTableTest, PartThatWouldBeTooLargeIsRefused) {
    Files files;
    EXPECT_THROW(addPart(addTo(files), "start", std::string(kLargestPart, '1')), std::length_error);
    EXPECT_THAT(files, ElementsAre());
}

} // namespace
} // namespace refdoc::site
