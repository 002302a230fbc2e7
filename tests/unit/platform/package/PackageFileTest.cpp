#include "tests/support/NativeText.hpp"
#include "tests/support/PosixTest.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <fstream>
#include <system_error>

namespace docparser_tests {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

class PackageFileTest : public PackageTest {
protected:
    /// The message with which the physical package refuses a path.
    static std::string refusalOf(const std::u16string& path) {
        const opc::FileSystemOpsSelector selector(
            storage::microservicestoragesystem::GetStorageSystemReference());
        return messageOf([&] { opc::zippackage::ZipPhysicalPackage(path, selector, true); });
    }
};

std::string smallPackage() {
    return ZipBytes{.entries = {{.name = "a.json", .content = "text"}}}.build();
}

TEST_F(PackageFileTest, PhysicalPackageRefusesAMissingFile) {
    EXPECT_EQ(refusalOf(path("missing.zip")), "the package \"" + textOf(folder / "missing.zip") +
                                                  "\" is no regular file that can be read");
    EXPECT_THAT(refusalOf(u""), HasSubstr("is no regular file"));
}

TEST_F(PackageFileTest, RefusesAFolder) {
    std::filesystem::create_directory(folder / "folder.zip");
    EXPECT_THAT(refusalOf(path("folder.zip")), HasSubstr("is no regular file"));
}

TEST_F(PackageFileTest, RefusesADevice) {
    for (const char16_t* device : {u"/dev/zero", u"/dev/null", u"NUL", u"CON"})
        EXPECT_THAT(refusalOf(device), HasSubstr("is no regular file"));
}

POSIX_TEST_F(PackageFileTest, FollowsASymbolicLinkToAPackage) {
    write("package.zip", smallPackage());
    std::filesystem::create_symlink("package.zip", folder / "link.zip");
    EXPECT_THAT(OpenPackage(path("link.zip")).contents(), ElementsAre(Pair(u"a.json", "text")));
}

TEST_F(PackageFileTest, OpensPathsBeyondAscii) {
    const std::string name = "\xE6\xA3\x9A \xC3\xA9 \xF0\x9F\x8D\x8F.zip";
    write(name, smallPackage());
    const std::u16string file = folder.u16string() + u"/\u68DA \u00E9 \U0001F34F.zip";
    EXPECT_THAT(OpenPackage(file).contents(), ElementsAre(Pair(u"a.json", "text")));
}

TEST_F(PackageFileTest, RefusesPathsWithoutANativeForm) {
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    write("package.zip", smallPackage());
    const std::u16string withNul = path("package.zip") + u'\0' + u".zip";
    EXPECT_THROW(opc::zippackage::ZipPhysicalPackage(withNul, selector, true), std::system_error);
#ifndef _WIN32 // where paths are UTF-16, an unpaired surrogate is valid
    EXPECT_THROW(opc::zippackage::ZipPhysicalPackage(u"\xD800.zip", selector, true),
                 std::system_error);
#endif
}

TEST_F(PackageFileTest, MessageShowsThePathInUtf8) {
    EXPECT_THAT(refusalOf(path("\xC3\xA9.zip")), HasSubstr(native("/\xC3\xA9.zip") + "\""));
}

TEST_F(PackageFileTest, FileTruncatedAfterOpeningThrows) {
    const std::string text = sampleText(200'000);
    OpenPackage package = open({.entries = {{.name = "a", .content = text}}});
    std::filesystem::resize_file(folder / "package.zip", 70'000);
    EXPECT_THROW(package.read(0), opc::PackageError);
    std::filesystem::resize_file(folder / "package.zip", 0);
    EXPECT_THROW(package.read(0), opc::PackageError);
}

TEST_F(PackageFileTest, FileRemovedAfterOpeningIsStillRead) {
    OpenPackage package = open(smallPackage());
    std::filesystem::remove(folder / "package.zip");
    EXPECT_EQ(package.read(0), "text");
}

TEST_F(PackageFileTest, NeverWritesThePackage) {
    const std::string bytes = smallPackage();
    const std::u16string file = write(bytes);
    std::filesystem::permissions(folder / "package.zip", std::filesystem::perms::owner_read);
    { EXPECT_EQ(OpenPackage(file).read(0), "text"); }
    std::ifstream stream(folder / "package.zip", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), bytes);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(PackageFileTest, EntryNamesThatLeadOutOfThePackageTouchNoFile) {
    const std::string outside = textOf(folder / "outside.json");
    OpenPackage package = open({.entries = {{.name = outside, .content = "inside"},
                                            {.name = "../outside.json", .content = "inside"}}});
    EXPECT_EQ(package.read(0), "inside");
    EXPECT_EQ(package.read(1), "inside");
    EXPECT_FALSE(std::filesystem::exists(outside));
}

#ifndef _WIN32
TEST_F(PackageFileTest, RefusesAPipeWithoutWaitingForAWriter) {
    ASSERT_EQ(::mkfifo((folder / "pipe.zip").c_str(), 0600), 0);
    EXPECT_THAT(refusalOf(path("pipe.zip")), HasSubstr("is no regular file"));
}

TEST_F(PackageFileTest, ChildProcessesDoNotInheritThePackage) {
    const OpenPackage package = open(smallPackage());
    int descriptors = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (std::filesystem::read_symlink(entry.path(), error) != folder / "package.zip")
            continue;
        ++descriptors;
        const int flags = ::fcntl(std::stoi(entry.path().filename()), F_GETFD);
        EXPECT_NE(flags & FD_CLOEXEC, 0);
    }
    EXPECT_EQ(descriptors, 1);
}
#endif

} // namespace

} // namespace docparser_tests
