// Tests of sharing, attributes and devices, the Windows counterparts of POSIX permissions and
// pipes.

#include "platform/path/FileStream.hpp"
#include "platform/path/Path.hpp"
#include "platform/system/RegularFile.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace platform {
namespace {

using docparser_tests::TemporaryFolder;

constexpr DWORD kShareEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// A second handle to a file. Sharing modes apply within one process as between processes.
class OtherOpener {
public:
    OtherOpener(const std::filesystem::path& file, DWORD access, DWORD share,
                bool isInherited = false) {
        SECURITY_ATTRIBUTES security = {sizeof security, nullptr, isInherited};
        handle_ = ::CreateFileW(file.c_str(), access, share, &security, OPEN_EXISTING, 0, nullptr);
    }
    ~OtherOpener() {
        if (isOpen())
            ::CloseHandle(handle_);
    }
    OtherOpener(const OtherOpener&) = delete;
    OtherOpener& operator=(const OtherOpener&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

// A program that inherits all inheritable handles and runs until the object is destroyed.
class WaitingProgram {
public:
    WaitingProgram() {
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        std::wstring command = L"ping.exe -n 60 127.0.0.1";
        EXPECT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr,
                                     /*bInheritHandles=*/TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                                     &startup, &process_));
    }
    ~WaitingProgram() {
        ::TerminateProcess(process_.hProcess, 0);
        ::WaitForSingleObject(process_.hProcess, INFINITE);
        ::CloseHandle(process_.hThread);
        ::CloseHandle(process_.hProcess);
    }
    WaitingProgram(const WaitingProgram&) = delete;
    WaitingProgram& operator=(const WaitingProgram&) = delete;

private:
    PROCESS_INFORMATION process_ = {};
};

std::string contentOf(const RegularFile& file) {
    std::string bytes(static_cast<std::size_t>(file.size()), '\0');
    bytes.resize(file.readAt(0, bytes.data(), bytes.size()));
    return bytes;
}

class RegularFileWindowsTest : public testing::Test {
protected:
    TemporaryFolder folder_;
};

TEST_F(RegularFileWindowsTest, LetsOthersWriteWhileItIsOpen) {
    const auto path = folder_.write("P.json", "0123456789");
    const auto file = RegularFile::open(path);
    ASSERT_TRUE(file);
    const OtherOpener writer(path, GENERIC_WRITE, kShareEverything);
    ASSERT_TRUE(writer.isOpen());
    DWORD written = 0;
    ASSERT_TRUE(::WriteFile(writer.get(), "abc", 3, &written, nullptr));
    EXPECT_EQ(contentOf(*file), "abc3456789");
}

TEST_F(RegularFileWindowsTest, OpensAFileThatAWriterShares) {
    const auto path = folder_.write("P.json", "{}");
    const OtherOpener writer(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ);
    ASSERT_TRUE(writer.isOpen());
    const auto file = RegularFile::open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(contentOf(*file), "{}");
}

TEST_F(RegularFileWindowsTest, TreatsAFileThatAnotherDoesNotShareAsMissing) {
    const auto path = folder_.write("P.json", "{}");
    const OtherOpener exclusive(path, GENERIC_READ, 0);
    ASSERT_TRUE(exclusive.isOpen());
    EXPECT_FALSE(RegularFile::open(path));
}

TEST_F(RegularFileWindowsTest, TreatsAFileLockedByAnotherProcessAsMissingUntilItEnds) {
    const auto path = folder_.write("P.json", "{}");
    std::optional<OtherOpener> exclusive(std::in_place, path, GENERIC_READ, 0,
                                         /*isInherited=*/true);
    ASSERT_TRUE(exclusive->isOpen());
    {
        const WaitingProgram heir;
        exclusive.reset();
        EXPECT_FALSE(RegularFile::open(path));
    }
    EXPECT_TRUE(RegularFile::open(path));
}

TEST_F(RegularFileWindowsTest, StillReadsARemovedFile) {
    const auto path = folder_.write("P.json", "{}");
    const auto file = RegularFile::open(path);
    ASSERT_TRUE(file);
    EXPECT_TRUE(std::filesystem::remove(path));
    EXPECT_EQ(contentOf(*file), "{}");
}

TEST_F(RegularFileWindowsTest, ReadsAFileWithTheReadOnlyAttribute) {
    const auto path = folder_.write("P.json", "{}");
    ASSERT_TRUE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    const auto file = RegularFile::open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(contentOf(*file), "{}");
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(RegularFileWindowsTest, IsNotInheritedByChildProcesses) {
    const auto path = folder_.write("P.json", "{}");
    std::optional<RegularFile> file = RegularFile::open(path);
    ASSERT_TRUE(file);
    const WaitingProgram program;
    file.reset();
    // Succeeds only if no other process has the file open.
    EXPECT_TRUE(OtherOpener(path, GENERIC_READ, 0).isOpen());
}

TEST_F(RegularFileWindowsTest, TreatsDevicesAndStreamsAsMissing) {
    const auto path = folder_.write("P.json", "{}");
    for (const wchar_t* name : {L"CON", L"NUL", L"nul.json", L"COM1", L"P.json:notes"}) {
        EXPECT_FALSE(RegularFile::open((folder_.path() / name).native()));
        EXPECT_FALSE(RegularFile::open(name));
    }
    EXPECT_TRUE(RegularFile::open(path));
}

TEST_F(RegularFileWindowsTest, DoesNotOpenFolders) {
    EXPECT_FALSE(RegularFile::open(folder_.path()));
}

TEST_F(RegularFileWindowsTest, OpensAPathLongerThanTheUsualLimit) {
    fl::filesystem::path path(folder_.u16());
    const std::u16string name(100, u'a');
    for (int depth = 0; depth < 4; ++depth) {
        path = path / name;
        const auto folder = fl::filesystem::make_native_access_form_with_cleanup_i18n(path);
        ASSERT_TRUE(::CreateDirectoryW(folder.c_str(), nullptr)) << depth;
    }
    path = path / u"P.json";
    const auto file = fl::filesystem::make_native_access_form_with_cleanup_i18n(path);
    const HANDLE made =
        ::CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(made, INVALID_HANDLE_VALUE);
    ::CloseHandle(made);
    EXPECT_TRUE(RegularFile::open(file));
    fl::filesystem::ifstream stream(file, std::ios::in | std::ios::binary,
                                    fl::filesystem::share_mode::deny_none);
    EXPECT_TRUE(stream.is_open());
}

} // namespace
} // namespace platform
