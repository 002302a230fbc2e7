// A separate program because it replaces dladdr() of the loader.
#include "platform/system/InstallationPrefix.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

namespace {

// The result of dladdr(): whether the loader knows the library, and the file of the library.
int answer = 0;
const char* libraryFile = nullptr;

} // namespace

extern "C" int dladdr(const void*, Dl_info* info) noexcept {
    *info = Dl_info();
    info->dli_fname = libraryFile;
    return answer;
}

namespace platform {
namespace {

using docparser_tests::TemporaryFolder;

const std::u16string kBuiltFor = u"/the/prefix/built/for";

TEST(LoaderAnswerTest, DerivesThePrefixFromTheFileOfTheLibrary) {
    const TemporaryFolder folder;
    const std::string file = folder.write("lib/libdocparser_platform.so", "").string();
    answer = 1;
    libraryFile = file.c_str();
    EXPECT_EQ(installationPrefix(), folder.u16());
}

TEST(LoaderAnswerTest, UsesTheConfiguredPrefixIfTheLoaderDoesNotKnowTheLibrary) {
    answer = 0;
    libraryFile = nullptr;
    EXPECT_EQ(installationPrefix(), kBuiltFor);
}

TEST(LoaderAnswerTest, UsesTheConfiguredPrefixIfTheLibraryHasNoFile) {
    answer = 1;
    libraryFile = nullptr;
    EXPECT_EQ(installationPrefix(), kBuiltFor);
}

TEST(LoaderAnswerTest, UsesTheConfiguredPrefixIfTheFileWasRemoved) {
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "lib/libdocparser_platform.so").string();
    answer = 1;
    libraryFile = file.c_str();
    EXPECT_EQ(installationPrefix(), kBuiltFor);
}

} // namespace
} // namespace platform
