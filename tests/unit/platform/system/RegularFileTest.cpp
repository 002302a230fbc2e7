#include "platform/system/RegularFile.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace platform {
namespace {

using docparser_tests::TemporaryFolder;
using std::string;

std::vector<std::filesystem::path> openDescriptors() {
    std::vector<std::filesystem::path> links;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        links.push_back(entry.path());
    return links;
}

class RegularFileTest : public testing::Test {
protected:
    static bool isOpened(const std::filesystem::path& file) {
        return RegularFile::open(file).has_value();
    }

    TemporaryFolder folder_;
};

TEST_F(RegularFileTest, ReadsAnyPartOfTheFile) {
    const auto file = RegularFile::open(folder_.write("P.json", "0123456789"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), 10u);
    string buffer(4, 'x');
    EXPECT_EQ(file->readAt(3, buffer.data(), 4), 4u);
    EXPECT_EQ(buffer, "3456");
    EXPECT_EQ(file->readAt(8, buffer.data(), 4), 2u);
    EXPECT_EQ(buffer, "8956");
    EXPECT_EQ(file->readAt(10, buffer.data(), 4), 0u);
    EXPECT_EQ(file->readAt(0, buffer.data(), 0), 0u);
    EXPECT_EQ(buffer, "8956");
}

TEST_F(RegularFileTest, DoesNotOpenMissingFiles) {
    folder_.write("P.json", "{}");
    for (const std::filesystem::path& name :
         {folder_.path() / "Q.json", folder_.path() / "Q" / "P.json",
          folder_.path() / "P.json" / "P.json", folder_.path() / string(5000, 'a'),
          folder_.path() / "P.json/", std::filesystem::path()}) {
        EXPECT_FALSE(isOpened(name)) << name;
    }
}

TEST_F(RegularFileTest, DoesNotOpenTheFileBeforeANulInThePath) {
    const auto file = folder_.write("P.json", "{}");
    for (const NativePath& path :
         {file.native() + string("\0.bak", 5), file.native() + string(1, '\0')}) {
        EXPECT_FALSE(isOpened(path));
    }
}

TEST_F(RegularFileTest, DoesNotOpenFoldersSocketsAndDevices) {
    std::filesystem::create_directory(folder_.path() / "folder.json");
    const auto socket = folder_.path() / "socket.json";
    ASSERT_EQ(::mknod(socket.c_str(), S_IFSOCK | 0600, 0), 0);
    std::filesystem::create_symlink("/dev/zero", folder_.path() / "zero.json");
    for (const std::filesystem::path& path :
         {folder_.path() / "folder.json", socket, std::filesystem::path("/dev/null"),
          std::filesystem::path("/dev/zero"), folder_.path() / "zero.json"}) {
        EXPECT_FALSE(isOpened(path)) << path;
    }
}

TEST_F(RegularFileTest, DoesNotWaitForTheWriterOfAPipe) {
    const auto pipe = folder_.path() / "pipe.json";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::promise<bool> answer;
    std::future<bool> opened = answer.get_future();
    std::thread reader([&] { answer.set_value(isOpened(pipe)); });
    const bool isPrompt = opened.wait_for(std::chrono::seconds(30)) == std::future_status::ready;
    // Opening both ends releases a reader that waits.
    const int release = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK);
    reader.join();
    ::close(release);
    EXPECT_TRUE(isPrompt);
    EXPECT_FALSE(opened.get());
}

TEST_F(RegularFileTest, LeavesTheBytesOfAPipeToItsReader) {
    const auto pipe = folder_.path() / "pipe.json";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int ends = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(ends, 0);
    ASSERT_EQ(::write(ends, "{}", 2), 2);
    EXPECT_FALSE(isOpened(pipe));
    char bytes[3] = {};
    EXPECT_EQ(::read(ends, bytes, 2), 2);
    EXPECT_STREQ(bytes, "{}");
    ::close(ends);
}

TEST_F(RegularFileTest, FollowsLinksToRegularFiles) {
    folder_.write("P.json", "{}");
    std::filesystem::create_symlink("P.json", folder_.path() / "link.json");
    std::filesystem::create_symlink("nowhere.json", folder_.path() / "dangling.json");
    std::filesystem::create_symlink("loop.json", folder_.path() / "loop.json");
    EXPECT_TRUE(isOpened(folder_.path() / "link.json"));
    EXPECT_FALSE(isOpened(folder_.path() / "dangling.json"));
    EXPECT_FALSE(isOpened(folder_.path() / "loop.json"));
}

TEST_F(RegularFileTest, OpensAFileWithoutReadPermissionOnlyForThePrivilegedUser) {
    const auto file = folder_.write("P.json", "{}");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    EXPECT_EQ(isOpened(file), ::access(file.c_str(), R_OK) == 0);
}

TEST_F(RegularFileTest, IsNotInheritedByChildProcesses) {
    const auto path = folder_.write("P.json", "{}");
    const auto file = RegularFile::open(path);
    ASSERT_TRUE(file);
    int found = 0;
    for (const auto& descriptor : openDescriptors()) {
        std::error_code closed; // the descriptor that listed the folder is closed by now
        if (std::filesystem::read_symlink(descriptor, closed) != path)
            continue;
        ++found;
        const int flags = ::fcntl(std::stoi(descriptor.filename()), F_GETFD);
        EXPECT_NE(flags & FD_CLOEXEC, 0);
    }
    EXPECT_EQ(found, 1);
}

TEST_F(RegularFileTest, ClosesItsFileOnEveryPath) {
    const auto path = folder_.write("P.json", "{}");
    const std::size_t before = openDescriptors().size();
    for (int i = 0; i < 20; ++i) {
        EXPECT_FALSE(isOpened(folder_.path()));
        EXPECT_FALSE(isOpened("/dev/null"));
        std::optional<RegularFile> first = RegularFile::open(path);
        std::optional<RegularFile> second = RegularFile::open(path);
        ASSERT_TRUE(first && second);
        *first = std::move(*second);
        const RegularFile third(std::move(*first));
        EXPECT_EQ(third.size(), 2u);
    }
    EXPECT_EQ(openDescriptors().size(), before);
}

TEST_F(RegularFileTest, DeniesOthersNothing) {
    const auto path = folder_.write("P.json", "0123456789");
    const auto file = RegularFile::open(path);
    ASSERT_TRUE(file);
    folder_.write("P.json", "abcde");
    EXPECT_EQ(file->size(), 5u);
    EXPECT_TRUE(std::filesystem::remove(path));
    char byte = 'x';
    EXPECT_EQ(file->readAt(0, &byte, 1), 1u);
    EXPECT_EQ(byte, 'a');
}

TEST_F(RegularFileTest, ReadsFilesAboveFourGibibytes) {
    const auto path = folder_.write("P.json", "");
    constexpr std::uint64_t size = std::uint64_t{5} << 30;
    std::filesystem::resize_file(path, size);
    const auto file = RegularFile::open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), size);
    char byte = 'x';
    EXPECT_EQ(file->readAt(size - 1, &byte, 1), 1u);
    EXPECT_EQ(byte, '\0');
    EXPECT_EQ(file->readAt(size, &byte, 1), 0u);
}

TEST_F(RegularFileTest, ThrowsWhenAReadFails) {
    // A regular file whose first bytes cannot be read.
    const auto file = RegularFile::open("/proc/self/mem");
    ASSERT_TRUE(file);
    char byte = 'x';
    EXPECT_THROW(file->readAt(0, &byte, 1), std::system_error);
    EXPECT_EQ(byte, 'x');
}

TEST_F(RegularFileTest, HasNoSizeOnceMovedFrom) {
    auto file = RegularFile::open(folder_.write("P.json", "{}"));
    ASSERT_TRUE(file);
    const RegularFile moved(std::move(*file));
    EXPECT_EQ(moved.size(), 2u);
    EXPECT_THROW(file->size(), std::system_error);
}

} // namespace
} // namespace platform
