#include "platform/system/InstallationPrefix.hpp"

#include <gtest/gtest.h>

namespace platform {

namespace {

// An absolute path of this system: with a drive on Windows.
std::filesystem::path onThisDrive(const char* path) {
    return std::filesystem::current_path().root_name() / path;
}

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
        const auto root = rootOfInstalledTree(onThisDrive(one.libraryFolder), one.relativeFolder);
        EXPECT_EQ(root.has_value(), one.root != nullptr)
            << one.libraryFolder << ' ' << one.relativeFolder;
        EXPECT_EQ(root.value_or(""), one.root == nullptr ? "" : onThisDrive(one.root))
            << one.libraryFolder;
    }
}

TEST(InstallationPrefixTest, IsUnknownIfTheLibraryWasBuiltForAnAbsoluteFolder) {
    for (const char* folder : {"/opt/lib", "/"}) {
        EXPECT_FALSE(rootOfInstalledTree(onThisDrive("/opt/lib"), onThisDrive(folder)));
        EXPECT_FALSE(rootOfInstalledTree(onThisDrive("/"), onThisDrive(folder)));
    }
}

TEST(InstallationPrefixTest, IsUnknownIfTheLibraryFolderIsNotAbsolute) {
    EXPECT_FALSE(rootOfInstalledTree("", "lib"));
    EXPECT_FALSE(rootOfInstalledTree("", ""));
    EXPECT_FALSE(rootOfInstalledTree("lib", "lib"));
}

} // namespace

} // namespace platform
