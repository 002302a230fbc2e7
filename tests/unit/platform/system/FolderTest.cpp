#include "platform/system/Folder.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

using docparser_tests::TemporaryFolder;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// Ends after a few names, in case the iteration does not.
std::vector<std::string> namesIn(Folder folder) {
    std::vector<std::string> names;
    for (auto name = folder.next(); name && names.size() < 10; name = folder.next())
        names.push_back(std::filesystem::path(*name).string());
    return names;
}

TEST(FolderTest, ListsItsEntriesButNotThoseOfSubfolders) {
    const TemporaryFolder folder;
    folder.write("Orchard.json", "{}");
    folder.write(".hidden", "");
    folder.write("sub/Meadow.json", "{}");
    EXPECT_THAT(namesIn(Folder::open(folder.path()).value()),
                UnorderedElementsAre("Orchard.json", ".hidden", "sub"));
}

TEST(FolderTest, ListsNothingIfEmpty) {
    const TemporaryFolder folder;
    EXPECT_THAT(namesIn(Folder::open(folder.path()).value()), IsEmpty());
}

TEST(FolderTest, StaysAtItsEnd) {
    const TemporaryFolder folder;
    Folder listing = Folder::open(folder.path()).value();
    EXPECT_FALSE(listing.next());
    EXPECT_FALSE(listing.next());
}

TEST(FolderTest, DoesNotOpenMissingFoldersAndFiles) {
    const TemporaryFolder folder;
    EXPECT_FALSE(Folder::open(folder.path() / "missing"));
    EXPECT_FALSE(Folder::open(folder.write("Orchard.json", "{}")));
}

TEST(FolderTest, DoesNotOpenTheFolderBeforeANulInThePath) {
    const TemporaryFolder folder;
    NativePath path = folder.path().native();
    path.push_back('\0');
    EXPECT_FALSE(Folder::open(path));
}

} // namespace
} // namespace platform
