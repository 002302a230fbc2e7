#include "platform/system/InstallationPrefix.hpp"

#include <gtest/gtest.h>

namespace platform {

namespace {

struct TreeCase {
    const char* libraryFolder;
    const char* relativeFolder;
    const char* root; // null: the library is not in an installed tree
};

TEST(InstallationPrefixTest, IsTheLibraryFolderWithoutTheLibrarysRelativeFolder) {
    constexpr TreeCase cases[] = {
        {"/usr/lib", "lib", "/usr"},
        {"/opt/docs/lib64", "lib64", "/opt/docs"},
        {"/usr/lib/x86_64-linux-gnu", "lib/x86_64-linux-gnu", "/usr"},
        {"/usr/lib/x86_64-linux-gnu", "lib", nullptr},
        {"/usr/x86_64-linux-gnu", "lib/x86_64-linux-gnu", nullptr},
        {"/lib", "lib", "/"},
        {"/", "lib", nullptr},
        {"/usr/lib", "lib/", "/usr"},
        {"/usr/lib", "./lib", "/usr"},
        {"/usr/lib", "lib/docs/..", "/usr"},
        {"/home/me/build/platform", "lib", nullptr},
        {"/home/me/mylib", "lib", nullptr},
        {"/usr", ".", "/usr"},
    };
    for (const TreeCase& one : cases) {
        const auto root = rootOfInstalledTree(one.libraryFolder, one.relativeFolder);
        EXPECT_EQ(root.has_value(), one.root != nullptr)
            << one.libraryFolder << ' ' << one.relativeFolder;
        EXPECT_EQ(root.value_or(""), one.root == nullptr ? "" : one.root) << one.libraryFolder;
    }
}

TEST(InstallationPrefixTest, IsUnknownIfTheLibraryWasBuiltForAnAbsoluteFolder) {
    EXPECT_FALSE(rootOfInstalledTree("/opt/lib", "/opt/lib"));
    EXPECT_FALSE(rootOfInstalledTree("/opt/lib", "/"));
    EXPECT_FALSE(rootOfInstalledTree("/", "/"));
}

TEST(InstallationPrefixTest, IsUnknownIfTheLibraryFolderIsNotAbsolute) {
    EXPECT_FALSE(rootOfInstalledTree("", "lib"));
    EXPECT_FALSE(rootOfInstalledTree("", ""));
    EXPECT_FALSE(rootOfInstalledTree("lib", "lib"));
}

} // namespace

} // namespace platform
