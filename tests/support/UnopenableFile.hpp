#pragma once

#include <filesystem>
#ifdef _WIN32
#include <windows.h>

#include <system_error>
#endif

namespace docparser_tests {

/// Creates a directory entry that cannot be opened during the life of the object: a dangling link
/// or, on Windows, a file that this object keeps open without sharing.
class UnopenableFile {
public:
#ifdef _WIN32
    explicit UnopenableFile(const std::filesystem::path& path)
        : handle_(::CreateFileW(path.c_str(), GENERIC_WRITE, /*dwShareMode=*/0, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (handle_ == INVALID_HANDLE_VALUE)
            throw std::system_error(static_cast<int>(::GetLastError()), std::system_category());
    }
    ~UnopenableFile() {
        ::CloseHandle(handle_);
    }
#else
    explicit UnopenableFile(const std::filesystem::path& path) {
        std::filesystem::create_symlink("nothing", path);
    }
#endif
    UnopenableFile(const UnopenableFile&) = delete;
    UnopenableFile& operator=(const UnopenableFile&) = delete;

#ifdef _WIN32
private:
    HANDLE handle_;
#endif
};

} // namespace docparser_tests
