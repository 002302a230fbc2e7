#include "platform/path/FileStream.hpp"

#include "platform/path/Path.hpp"
#include "platform/system/RegularFile.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <future>
#include <iterator>
#include <limits>
#include <locale>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace fl::filesystem {

namespace {

using docparser_tests::TemporaryFolder;
using platform::RegularFile;
using std::string;

ifstream openStream(const std::filesystem::path& file) {
    return ifstream(file, std::ios::in | std::ios::binary, share_mode::deny_none);
}

// Reads a stream as the readers of resource files do: its size, then all of it at once.
string readWhole(const std::filesystem::path& file) {
    ifstream stream = openStream(file);
    if (!stream.is_open())
        return "not open";
    stream.seekg(0, std::ios::end);
    string bytes(static_cast<std::size_t>(stream.tellg()), '\0');
    stream.seekg(0);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_EQ(stream.gcount(), static_cast<std::streamsize>(bytes.size())) << file;
    EXPECT_TRUE(stream.good()) << file;
    return bytes;
}

bool isOpened(const std::filesystem::path& file) {
    const ifstream stream = openStream(file);
    EXPECT_EQ(stream.is_open(), !stream.fail()) << file;
    EXPECT_EQ(stream.is_open(), RegularFile::open(file).has_value()) << file;
    return stream.is_open();
}

std::vector<std::filesystem::path> openDescriptors() {
    std::vector<std::filesystem::path> links;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        links.push_back(entry.path());
    return links;
}

class FileStreamTest : public testing::Test {
protected:
    TemporaryFolder folder_;
};

TEST_F(FileStreamTest, GivesTheBytesAsTheyAreStored) {
    const string bytes("\xEF\xBB\xBF{\r\n\0\x1A\xFF\n\r}\x04", 12);
    EXPECT_EQ(readWhole(folder_.write("P.json", bytes)), bytes);
    EXPECT_EQ(readWhole(folder_.write("empty.json", "")), "");
    const string large(3'000'000, '\xE3');
    EXPECT_EQ(readWhole(folder_.write("large.json", large)), large);
}

TEST_F(FileStreamTest, GivesTheSameBytesOneByOneAndInFormattedReads) {
    const auto file = folder_.write("P.json", "12 pears\xFF\n");
    ifstream byOne = openStream(file);
    const string bytes{std::istreambuf_iterator<char>(byOne), std::istreambuf_iterator<char>()};
    EXPECT_EQ(bytes, "12 pears\xFF\n");

    ifstream formatted = openStream(file);
    int count = 0;
    string what;
    formatted >> count >> what;
    EXPECT_EQ(count, 12);
    EXPECT_EQ(what, "pears\xFF");
    EXPECT_EQ(formatted.peek(), '\n');
    EXPECT_EQ(formatted.get(), '\n');
    EXPECT_EQ(formatted.get(), std::char_traits<char>::eof());
    EXPECT_TRUE(formatted.eof());
}

TEST_F(FileStreamTest, SeeksFromStartEndAndHere) {
    auto stream = openStream(folder_.write("P.json", "0123456789"));
    EXPECT_EQ(stream.tellg(), 0);
    EXPECT_EQ(stream.seekg(0, std::ios::end).tellg(), 10);
    EXPECT_EQ(stream.seekg(-3, std::ios::end).get(), '7');
    EXPECT_EQ(stream.seekg(-2, std::ios::cur).get(), '6');
    EXPECT_EQ(stream.seekg(4).get(), '4');
    EXPECT_EQ(stream.tellg(), 5);
}

TEST_F(FileStreamTest, RefusesToSeekBeforeTheStartOrBeyondAnyPlace) {
    constexpr std::streamoff last = std::numeric_limits<std::streamoff>::max();
    constexpr std::streamoff first = std::numeric_limits<std::streamoff>::min();
    file_buffer buffer(folder_.write("P.json", "0123456789"));
    EXPECT_EQ(buffer.pubseekoff(-1, std::ios::beg), -1);
    EXPECT_EQ(buffer.pubseekoff(first, std::ios::end), -1);
    EXPECT_EQ(buffer.pubseekoff(last, std::ios::end), -1);
    EXPECT_EQ(buffer.pubseekoff(0, std::ios::cur), 0) << "the place has not moved";
    EXPECT_EQ(buffer.pubseekpos(last), last);
    EXPECT_EQ(buffer.pubseekoff(1, std::ios::cur), -1);
}

TEST_F(FileStreamTest, DoesNotOpenWhatIsMissing) {
    folder_.write("P.json", "{}");
    EXPECT_FALSE(isOpened(folder_.path() / "Q.json"));
    EXPECT_FALSE(isOpened(folder_.path() / "Q" / "P.json"));
    EXPECT_FALSE(isOpened(folder_.path() / "P.json" / "P.json"));
    EXPECT_FALSE(isOpened(folder_.path() / string(5000, 'a')));
    EXPECT_FALSE(isOpened(folder_.path() / "P.json/"));
    EXPECT_FALSE(isOpened(""));
}

TEST_F(FileStreamTest, DoesNotTakeAPathWithNulForTheFileBeforeIt) {
    const auto file = folder_.write("P.json", "{}");
    EXPECT_FALSE(isOpened(file.native() + string("\0.bak", 5)));
    EXPECT_FALSE(isOpened(file.native() + string(1, '\0')));
}

TEST_F(FileStreamTest, DoesNotOpenFoldersSocketsAndDevices) {
    std::filesystem::create_directory(folder_.path() / "folder.json");
    EXPECT_FALSE(isOpened(folder_.path() / "folder.json"));
    const auto socket = folder_.path() / "socket.json";
    ASSERT_EQ(::mknod(socket.c_str(), S_IFSOCK | 0600, 0), 0);
    EXPECT_FALSE(isOpened(socket));
    EXPECT_FALSE(isOpened("/dev/null"));
    EXPECT_FALSE(isOpened("/dev/zero"));
    std::filesystem::create_symlink("/dev/zero", folder_.path() / "zero.json");
    EXPECT_FALSE(isOpened(folder_.path() / "zero.json"));
}

TEST_F(FileStreamTest, DoesNotWaitForTheWriterOfAPipe) {
    const auto pipe = folder_.path() / "pipe.json";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::promise<bool> answer;
    std::future<bool> opened = answer.get_future();
    std::thread reader([&] { answer.set_value(isOpened(pipe)); });
    const bool isPrompt = opened.wait_for(std::chrono::seconds(30)) == std::future_status::ready;
    // Both ends at once, so that a reader that waits is let go.
    const int release = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK);
    reader.join();
    ::close(release);
    EXPECT_TRUE(isPrompt);
    EXPECT_FALSE(opened.get());
}

TEST_F(FileStreamTest, LeavesTheBytesInAPipeToItsReader) {
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

TEST_F(FileStreamTest, FollowsLinksToRegularFilesAlone) {
    folder_.write("P.json", "{}");
    std::filesystem::create_symlink("P.json", folder_.path() / "link.json");
    std::filesystem::create_symlink("nowhere.json", folder_.path() / "dangling.json");
    std::filesystem::create_symlink("loop.json", folder_.path() / "loop.json");
    EXPECT_EQ(readWhole(folder_.path() / "link.json"), "{}");
    EXPECT_FALSE(isOpened(folder_.path() / "dangling.json"));
    EXPECT_FALSE(isOpened(folder_.path() / "loop.json"));
}

TEST_F(FileStreamTest, OpensAFileWithoutReadPermissionForThePrivilegedUserAlone) {
    const auto file = folder_.write("P.json", "{}");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    EXPECT_EQ(isOpened(file), ::access(file.c_str(), R_OK) == 0);
}

TEST_F(FileStreamTest, OpensNamesBeyondAscii) {
    const std::u16string name = u"\u6771\u4eac \U0001F333 caf\u00e9.json";
    folder_.write(name, "{}");
    const path text = path(folder_.u16()) / name;
    EXPECT_EQ(readWhole(make_native_access_form_with_cleanup_i18n(text)), "{}");
}

TEST_F(FileStreamTest, IsNotInheritedByProgramsThatTheProcessStarts) {
    const auto file = folder_.write("P.json", "{}");
    const auto stream = openStream(file);
    ASSERT_TRUE(stream.is_open());
    int found = 0;
    for (const auto& descriptor : openDescriptors()) {
        std::error_code gone; // the descriptor that lists the folder is closed by now
        if (std::filesystem::read_symlink(descriptor, gone) != file)
            continue;
        ++found;
        const int flags = ::fcntl(std::stoi(descriptor.filename()), F_GETFD);
        EXPECT_NE(flags & FD_CLOEXEC, 0);
    }
    EXPECT_EQ(found, 1);
}

TEST_F(FileStreamTest, ClosesItsFileOnEveryPath) {
    const auto file = folder_.write("P.json", "{}");
    const std::size_t before = openDescriptors().size();
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(isOpened(file));
        EXPECT_FALSE(isOpened(folder_.path()));
        EXPECT_FALSE(isOpened("/dev/null"));
        std::optional<RegularFile> first = RegularFile::open(file);
        std::optional<RegularFile> second = RegularFile::open(file);
        ASSERT_TRUE(first && second);
        *first = std::move(*second);
        const RegularFile third(std::move(*first));
        EXPECT_EQ(third.size(), 2u);
    }
    EXPECT_EQ(openDescriptors().size(), before);
}

TEST_F(FileStreamTest, DeniesOthersNothingWhileItIsOpen) {
    const auto file = folder_.write("P.json", "0123456789");
    auto stream = openStream(file);
    folder_.write("P.json", "abcde");
    EXPECT_EQ(stream.seekg(0, std::ios::end).tellg(), 5);
    EXPECT_TRUE(std::filesystem::remove(file));
    EXPECT_EQ(stream.seekg(0).get(), 'a');
}

// Would turn each byte that a file buffer of the standard library reads into 'x'.
class XForEveryByte : public std::codecvt<char, char, std::mbstate_t> {
    bool do_always_noconv() const noexcept override { return false; }
    int do_encoding() const noexcept override { return 1; }
    result do_in(state_type&, const char* from, const char* fromEnd, const char*& fromNext,
                 char* to, char* toEnd, char*& toNext) const override {
        for (; from != fromEnd && to != toEnd; ++from)
            *to++ = 'x';
        fromNext = from;
        toNext = to;
        return from == fromEnd ? ok : partial;
    }
};

TEST_F(FileStreamTest, IsNotChangedByALocaleOfTheHost) {
    const auto file = folder_.write("P.json", "{\"a\": 1}");
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new XForEveryByte));
    std::ifstream translated(file, std::ios::in | std::ios::binary);
    const char translatedFirst = static_cast<char>(translated.get());
    const string bytes = readWhole(file);
    std::locale::global(before);
    EXPECT_EQ(translatedFirst, 'x') << "the locale is in force";
    EXPECT_EQ(bytes, "{\"a\": 1}");
}

TEST_F(FileStreamTest, TellsTheSizeOfAFileAboveFourGibibytes) {
    const auto file = folder_.write("P.json", "");
    constexpr std::uint64_t size = std::uint64_t{5} << 30;
    std::filesystem::resize_file(file, size);
    auto stream = openStream(file);
    EXPECT_EQ(stream.seekg(0, std::ios::end).tellg(), static_cast<std::streamoff>(size));
    EXPECT_EQ(stream.seekg(-1, std::ios::end).get(), '\0');
    const auto opened = RegularFile::open(file);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->size(), size);
    char byte = 'x';
    EXPECT_EQ(opened->readAt(size - 1, &byte, 1), 1u);
    EXPECT_EQ(opened->readAt(size, &byte, 1), 0u);
}

TEST_F(FileStreamTest, ReadsShortWhenTheFileShrinks) {
    const auto file = folder_.write("P.json", "0123456789");
    auto stream = openStream(file);
    ASSERT_EQ(stream.seekg(0, std::ios::end).tellg(), 10);
    std::filesystem::resize_file(file, 4);
    string bytes(10, '\0');
    stream.seekg(0).read(bytes.data(), 10);
    EXPECT_EQ(stream.gcount(), 4);
    EXPECT_TRUE(stream.eof());
    EXPECT_FALSE(stream.bad());
    EXPECT_EQ(bytes, string("0123\0\0\0\0\0\0", 10));
}

TEST_F(FileStreamTest, AReadThatFailsSetsTheBadbit) {
    // A regular file by its kind, whose first bytes nobody can read.
    auto stream = openStream("/proc/self/mem");
    ASSERT_TRUE(stream.is_open());
    char byte = 'x';
    stream.read(&byte, 1);
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(byte, 'x');

    const auto file = RegularFile::open("/proc/self/mem");
    ASSERT_TRUE(file);
    EXPECT_THROW(file->readAt(0, &byte, 1), std::system_error);
}

TEST_F(FileStreamTest, WithoutAFileReadsAndSeeksNothing) {
    file_buffer buffer(folder_.path() / "missing.json");
    char byte = 'x';
    EXPECT_FALSE(buffer.is_open());
    EXPECT_EQ(buffer.sgetn(&byte, 1), 0);
    EXPECT_EQ(buffer.sbumpc(), std::char_traits<char>::eof());
    EXPECT_EQ(buffer.pubseekoff(0, std::ios::end), -1);
    EXPECT_EQ(byte, 'x');
}

TEST_F(FileStreamTest, AFileMovedFromHasNoSize) {
    auto file = RegularFile::open(folder_.write("P.json", "{}"));
    ASSERT_TRUE(file);
    const RegularFile moved(std::move(*file));
    EXPECT_EQ(moved.size(), 2u);
    EXPECT_THROW(file->size(), std::system_error);
}

} // namespace

} // namespace fl::filesystem
