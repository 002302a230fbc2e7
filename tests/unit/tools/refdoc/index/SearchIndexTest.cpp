#include "tools/refdoc/index/SearchIndex.hpp"

#include "tests/unit/tools/refdoc/index/IndexFiles.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    for (const char16_t* character : {u"a", u"\u0001", u"\"", u"\u6728", u"\U00010400", u" ", u"-",
                                      u"\u0390", u"a-", u"\u2028"}) {
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
