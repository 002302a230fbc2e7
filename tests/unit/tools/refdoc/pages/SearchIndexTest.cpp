#include "tools/refdoc/pages/SearchIndex.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace refdoc::site {
namespace {

using reference::docparser::LookupIndex;
using reference::property::FunctionType;
using reference::property::HeaderInfo;
using reference::property::RefEntityType;
using reference::property::RefItemLookup;
using testing::ElementsAre;
using testing::Pair;

using Files = std::map<std::string, std::string>;

AddFile addTo(Files& files) {
    return [&files](const std::string& name, std::string_view content) {
        EXPECT_TRUE(files.emplace(name, content).second) << name;
        EXPECT_LE(content.size(), kLargestPart) << name;
    };
}

std::string digitsOf(std::uint32_t number) {
    std::string digits;
    appendNumber(number, digits);
    return digits;
}

TEST(SearchIndexTest, NumbersHaveDigitsThatJsonDoesNotEscape) {
    EXPECT_EQ(digitsOf(0), "#");
    EXPECT_EQ(digitsOf(44), "O");
    EXPECT_EQ(digitsOf(45), "Q#");
    EXPECT_EQ(digitsOf(45 * 45 - 1), "}O");
    for (std::uint32_t number = 0; number < 100'000; ++number)
        ASSERT_EQ(digitsOf(number).find_first_of("\"\\ "), std::string::npos) << number;
}

TEST(SearchIndexTest, TableSharesTheStartOfKeys) {
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

TEST(SearchIndexTest, TableWithoutRowsHasNoFiles) {
    Files files;
    const AddFile addFile = addTo(files);
    EXPECT_EQ(IndexTable("list", kLargestPart, addFile).finish(), "[]");
    EXPECT_THAT(files, ElementsAre());
}

TEST(SearchIndexTest, SeparatorsAreAsShortAsPossible) {
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

TEST(SearchIndexTest, PartThatWouldBeTooLargeIsRefused) {
    Files files;
    EXPECT_THROW(addPart(addTo(files), "start", std::string(kLargestPart, '1')), std::length_error);
    EXPECT_THAT(files, ElementsAre());
}

// An index of one section with records of these names, each with a link, a purpose and this
// product.
LookupIndex indexOf(const std::vector<std::u16string>& names,
                    const std::u16string& product = u"Orchard") {
    LookupIndex index;
    reference::docparser::DocResource<RefItemLookup> section{
        HeaderInfo(u"", u"", product, u"", u"", u"", u"Orchard"), {}};
    for (const std::u16string& name : names)
        section.items[name].emplace_back(name, RefEntityType::Function, u"of " + name, false,
                                         name + u".html", FunctionType::Function);
    index.notInstalled.emplace(u"orchard", section);
    return index;
}

Files filesOf(const LookupIndex& index) {
    Files files;
    makeSearchIndex(
        index, [](const auto&) { return "orchard/" + std::string(400, '%'); },
        addTo(files)); // checks the sizes
    return files;
}

TEST(SearchIndexTest, EmptyIndexHasOnlyItsStart) {
    EXPECT_THAT(filesOf({}),
                ElementsAre(Pair("start.js", "refdocIndex(\"start\",  94,{\"list\":[],\"best\":[],"
                                             "\"phrase\":[],\"name\":[],\"eman\":[],"
                                             "\"classes\":[]});\n")));
}

TEST(SearchIndexTest, NoFileIsTooLargeIfStringsAreVeryLong) {
    for (const char16_t* character :
         {u"a", u"\u0001", u"\"", u"\u6728", u"\U00010400", u" ", u"-", u"\u0390", u"a-"}) {
        std::u16string name;
        while (name.size() < 100'000)
            name += character;
        EXPECT_THAT(filesOf(indexOf({name, name + u"1", u"graft"}, name)),
                    testing::SizeIs(testing::Gt(2U)));
    }
}

TEST(SearchIndexTest, NoFileIsTooLargeIfManyRecordsAreAlike) {
    std::vector<std::u16string> names;
    for (std::size_t number = 0; number < 5'000; ++number)
        names.push_back(u"graft.smooth_" +
                        std::u16string(1, static_cast<char16_t>(0x4E00 + number)));
    const Files files = filesOf(indexOf(names));
    EXPECT_TRUE(files.contains("best0.js"));
    EXPECT_TRUE(files.contains("list20.js"));
}

TEST(SearchIndexTest, FilesDoNotDependOnTheRun) {
    const LookupIndex index = indexOf({u"graft", u"grafting", u"re-graft", u"shafting", u"raft"});
    EXPECT_EQ(filesOf(index), filesOf(index));
}

} // namespace
} // namespace refdoc::site
