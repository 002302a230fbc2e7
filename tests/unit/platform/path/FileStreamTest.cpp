#include "platform/path/FileStream.hpp"

#include "platform/path/Path.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <locale>
#include <string>

namespace fl::filesystem {
namespace {

using docparser_tests::TemporaryFolder;
using std::string;

ifstream openStream(const std::filesystem::path& file) {
    return ifstream(file, std::ios::in | std::ios::binary, share_mode::deny_none);
}

// Reads a file as the library does: its size, then all of it at once.
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

class FileStreamTest : public testing::Test {
protected:
    TemporaryFolder folder_;
};

TEST_F(FileStreamTest, DeliversBytesAsStored) {
    const string bytes("\xEF\xBB\xBF{\r\n\0\x1A\xFF\n\r}\x04", 12);
    EXPECT_EQ(readWhole(folder_.write("P.json", bytes)), bytes);
    EXPECT_EQ(readWhole(folder_.write("empty.json", "")), "");
    const string large(3'000'000, '\xE3');
    EXPECT_EQ(readWhole(folder_.write("large.json", large)), large);
}

TEST_F(FileStreamTest, DeliversTheSameBytesOneByOneAndInFormattedReads) {
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

TEST_F(FileStreamTest, SeeksFromStartCurrentPositionAndEnd) {
    auto stream = openStream(folder_.write("P.json", "0123456789"));
    EXPECT_EQ(stream.tellg(), 0);
    EXPECT_EQ(stream.seekg(0, std::ios::end).tellg(), 10);
    EXPECT_EQ(stream.seekg(-3, std::ios::end).get(), '7');
    EXPECT_EQ(stream.seekg(-2, std::ios::cur).get(), '6');
    EXPECT_EQ(stream.seekg(4).get(), '4');
    EXPECT_EQ(stream.tellg(), 5);
}

TEST_F(FileStreamTest, HasItsFailbitSetWithoutARegularFile) {
    for (const std::filesystem::path& file :
         {folder_.path() / "missing.json", folder_.path(), std::filesystem::path("/dev/null")}) {
        const ifstream stream = openStream(file);
        EXPECT_FALSE(stream.is_open()) << file;
        EXPECT_TRUE(stream.fail()) << file;
    }
    const ifstream stream = openStream(folder_.write("P.json", "{}"));
    EXPECT_TRUE(stream.is_open());
    EXPECT_FALSE(stream.fail());
}

TEST_F(FileStreamTest, OpensNamesBeyondAscii) {
    const std::u16string name = u"\u6771\u4eac \U0001F333 caf\u00e9.json";
    folder_.write(name, "{}");
    const path file = path(folder_.u16()) / name;
    EXPECT_EQ(readWhole(make_native_access_form_with_cleanup_i18n(file)), "{}");
}

// Changes each byte that a file buffer of the standard library reads to 'x'.
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

TEST_F(FileStreamTest, IgnoresTheLocaleOfTheHost) {
    const auto file = folder_.write("P.json", "{\"a\": 1}");
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new XForEveryByte));
    std::ifstream translated(file, std::ios::in | std::ios::binary);
    const char translatedFirst = static_cast<char>(translated.get());
    const string bytes = readWhole(file);
    std::locale::global(before);
    EXPECT_EQ(translatedFirst, 'x') << "the locale changes a stream of the standard library";
    EXPECT_EQ(bytes, "{\"a\": 1}");
}

TEST_F(FileStreamTest, SeeksInFilesAboveFourGibibytes) {
    const auto file = folder_.write("P.json", "");
    constexpr std::uint64_t size = std::uint64_t{5} << 30;
    std::filesystem::resize_file(file, size);
    auto stream = openStream(file);
    EXPECT_EQ(stream.seekg(0, std::ios::end).tellg(), static_cast<std::streamoff>(size));
    EXPECT_EQ(stream.seekg(-1, std::ios::end).get(), '\0');
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

TEST_F(FileStreamTest, SetsBadbitWhenAReadFails) {
    // A regular file whose first bytes cannot be read.
    auto stream = openStream("/proc/self/mem");
    ASSERT_TRUE(stream.is_open());
    char byte = 'x';
    stream.read(&byte, 1);
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(byte, 'x');
}

} // namespace
} // namespace fl::filesystem
