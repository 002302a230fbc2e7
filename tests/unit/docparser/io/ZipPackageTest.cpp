#include "docparser/io/ZipPackage.hpp"

#include <gtest/gtest.h>

#include <string>

namespace reference::docparser {
namespace {

// Entries of a package library that provides the folders of an entry, and of one that does not.
struct EntryWithFolders {
    const std::u16string& getName() const { return name; }
    const std::u16string& getBaseName() const { return baseName; }

    std::u16string name = u"lookup/A.json";
    std::u16string baseName = u"A.json";
};
struct EntryWithoutFolders {
    const std::u16string& getBaseName() const { return baseName; }

    std::u16string baseName = u"A.json";
};

TEST(EntryNameOf, IncludesTheFoldersIfThePackageLibraryKnowsThem) {
    const EntryWithFolders known;
    EXPECT_EQ(entryNameOf(known), u"lookup/A.json");
    const EntryWithoutFolders unknown;
    EXPECT_EQ(entryNameOf(unknown), u"A.json");
}

} // namespace
} // namespace reference::docparser
