#pragma once

#include <zip.h>

#include <memory>

namespace platform::zip {

struct ZipDiscard {
    void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
};

struct ZipFileClose {
    // The result is ignored: the last read has already reported every failure.
    void operator()(zip_file_t* file) const noexcept { zip_fclose(file); }
};

struct ZipSourceFree {
    void operator()(zip_source_t* source) const noexcept { zip_source_free(source); }
};

/// An archive; closed without being written.
using ZipHandle = std::unique_ptr<zip_t, ZipDiscard>;
/// An open entry; must be closed before its archive.
using ZipFileHandle = std::unique_ptr<zip_file_t, ZipFileClose>;
/// A source that no archive owns yet.
using ZipSourceHandle = std::unique_ptr<zip_source_t, ZipSourceFree>;

/// An error of libzip, with the message that libzip may have allocated for it.
class ZipErrorInfo {
public:
    ZipErrorInfo() noexcept { zip_error_init(&error_); }
    ~ZipErrorInfo() { zip_error_fini(&error_); }
    ZipErrorInfo(const ZipErrorInfo&) = delete;
    ZipErrorInfo& operator=(const ZipErrorInfo&) = delete;

    zip_error_t* get() noexcept { return &error_; }
    const char* message() noexcept { return zip_error_strerror(&error_); }

private:
    zip_error_t error_;
};

} // namespace platform::zip
