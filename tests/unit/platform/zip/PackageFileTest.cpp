#include "platform/zip/PackageFile.hpp"

#include "platform/ReadLimits.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/mman.h>
#endif

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <system_error>

namespace platform::zip {
namespace {

std::string bytesAt(PackageFile& file, std::uint64_t offset, std::size_t length) {
    std::string bytes(length, '\0');
    bytes.resize(file.read(offset, bytes.data(), bytes.size()));
    return bytes;
}

class ZipPackageFileTest : public testing::Test {
protected:
    const docparser_tests::TemporaryFolder folder;
    PackageFile file{*RegularFile::open(folder.write("P.zip", "0123456789"))};
};

TEST_F(ZipPackageFileTest, ReadsAsManyBytesAsItsAllowance) {
    file.setAllowance(5);
    EXPECT_EQ(bytesAt(file, 0, 3), "012");
    EXPECT_EQ(bytesAt(file, 8, 2), "89");
    EXPECT_THROW(bytesAt(file, 0, 1), LimitError);
}

TEST_F(ZipPackageFileTest, RefusedReadTakesNothingFromTheAllowance) {
    file.setAllowance(5);
    EXPECT_THROW(bytesAt(file, 0, 6), LimitError);
    EXPECT_EQ(bytesAt(file, 0, 5), "01234");
}

#ifndef _WIN32
TEST_F(ZipPackageFileTest, ForgetsTheBytesOfAReadThatFails) {
    // The process's own memory is a file in which a read can fail after its first bytes.
    constexpr std::size_t kPart = std::size_t{64} << 10;
    void* const memory = ::mmap(nullptr, 3 * kPart, PROT_READ | PROT_WRITE,
                                MAP_PRIVATE | MAP_ANONYMOUS, /*fd=*/-1, /*offset=*/0);
    ASSERT_NE(memory, MAP_FAILED);
    char* const bytes = static_cast<char*>(memory);
    std::memset(bytes, 'a', kPart);
    std::memset(bytes + kPart, 'b', kPart);
    ASSERT_EQ(::munmap(bytes + 2 * kPart, kPart), 0);

    PackageFile own(*RegularFile::open("/proc/self/mem"));
    const auto offset = reinterpret_cast<std::uintptr_t>(bytes);
    EXPECT_EQ(bytesAt(own, offset, 2), "aa");
    EXPECT_THROW(bytesAt(own, offset + 2 * kPart - 2, 3), std::system_error);
    EXPECT_EQ(bytesAt(own, offset, 2), "aa");
    EXPECT_EQ(::munmap(memory, 2 * kPart), 0);
}
#endif

} // namespace
} // namespace platform::zip
