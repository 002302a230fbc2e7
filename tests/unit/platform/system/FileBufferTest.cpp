#include "platform/system/FileBuffer.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <ios>
#include <limits>
#include <string>

namespace platform {
namespace {

using docparser_tests::TemporaryFolder;

constexpr std::streamoff kLast = std::numeric_limits<std::streamoff>::max();
constexpr std::streamoff kFirst = std::numeric_limits<std::streamoff>::min();

TEST(FileBufferTest, SeeksFromStartCurrentPositionAndEnd) {
    const TemporaryFolder folder;
    FileBuffer buffer(folder.write("P.json", "0123456789"));
    ASSERT_TRUE(buffer.isOpen());
    EXPECT_EQ(buffer.pubseekoff(0, std::ios::end), 10);
    EXPECT_EQ(buffer.pubseekoff(-3, std::ios::end), 7);
    EXPECT_EQ(buffer.sbumpc(), '7');
    EXPECT_EQ(buffer.pubseekoff(-2, std::ios::cur), 6);
    EXPECT_EQ(buffer.sgetc(), '6');
    EXPECT_EQ(buffer.pubseekpos(4), 4);
    EXPECT_EQ(buffer.sbumpc(), '4');
}

TEST(FileBufferTest, RefusesToSeekBeforeTheStartOrPastTheLastPosition) {
    const TemporaryFolder folder;
    FileBuffer buffer(folder.write("P.json", "0123456789"));
    EXPECT_EQ(buffer.pubseekoff(-1, std::ios::beg), -1);
    EXPECT_EQ(buffer.pubseekoff(kFirst, std::ios::end), -1);
    EXPECT_EQ(buffer.pubseekoff(kLast, std::ios::end), -1);
    EXPECT_EQ(buffer.pubseekoff(0, std::ios::cur), 0) << "the position is unchanged";
    EXPECT_EQ(buffer.pubseekpos(kLast), kLast);
    EXPECT_EQ(buffer.pubseekoff(1, std::ios::cur), -1);
}

TEST(FileBufferTest, NeitherReadsNorSeeksWithoutAFile) {
    const TemporaryFolder folder;
    FileBuffer buffer(folder.path() / "missing.json");
    char byte = 'x';
    EXPECT_FALSE(buffer.isOpen());
    EXPECT_EQ(buffer.sgetn(&byte, 1), 0);
    EXPECT_EQ(buffer.sbumpc(), std::char_traits<char>::eof());
    EXPECT_EQ(buffer.pubseekoff(0, std::ios::end), -1);
    EXPECT_EQ(byte, 'x');
}

} // namespace
} // namespace platform
