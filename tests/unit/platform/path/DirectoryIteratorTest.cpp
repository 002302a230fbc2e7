#include "platform/path/DirectoryIterator.hpp"

#include "tests/support/NativeText.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace fl::filesystem {
namespace {

using docparser_tests::TemporaryFolder;
using testing::UnorderedElementsAre;

TEST(DirectoryIteratorTest, ListsEachEntryWithNameAndPath) {
    const TemporaryFolder folder;
    folder.write("Orchard.json", "{}");
    folder.write("sub/Meadow.json", "{}");
    std::vector<std::u16string> names;
    directory_iterator entry(path(folder.u16()), u"*");
    for (; entry.is_open(); entry.increment()) {
        ASSERT_LT(names.size(), 2U) << "the iteration does not end";
        names.push_back(entry.filename().string());
        EXPECT_EQ(entry.full_pathname().string(),
                  folder.u16() + docparser_tests::native(u"/") + names.back());
    }
    EXPECT_THAT(names, UnorderedElementsAre(u"Orchard.json", u"sub"));
}

TEST(DirectoryIteratorTest, ListsNothingIfTheFolderIsMissing) {
    const TemporaryFolder folder;
    EXPECT_FALSE(directory_iterator(path(folder.u16() + u"/missing"), u"*").is_open());
}

TEST(DirectoryIteratorTest, RefusesEveryPatternExceptTheOneForAllNames) {
    const TemporaryFolder folder;
    folder.write("Orchard.json", "{}");
    for (const std::u16string pattern : {u"", u"*.json", u"Orchard.json", u"**"})
        EXPECT_THROW(directory_iterator(path(folder.u16()), pattern), std::invalid_argument);
}

} // namespace
} // namespace fl::filesystem
