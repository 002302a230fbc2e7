#pragma once

#include <zip.h>

#include <memory>

namespace opc::detail {

struct ZipDiscard {
    void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
};

struct ZipFileClose {
    // What closing could report has been reported by the read that came before.
    void operator()(zip_file_t* file) const noexcept { zip_fclose(file); }
};

struct ZipSourceFree {
    void operator()(zip_source_t* source) const noexcept { zip_source_free(source); }
};

/// An archive that is closed without being written.
using ZipHandle = std::unique_ptr<zip_t, ZipDiscard>;
/// An open entry; to be closed before its archive.
using ZipFileHandle = std::unique_ptr<zip_file_t, ZipFileClose>;
/// A source that no archive has taken over.
using ZipSourceHandle = std::unique_ptr<zip_source_t, ZipSourceFree>;

/// Error information of libzip, with the text that it may have allocated.
class ZipErrorInfo {
public:
    ZipErrorInfo() noexcept { zip_error_init(&error_); }
    ~ZipErrorInfo() { zip_error_fini(&error_); }
    ZipErrorInfo(const ZipErrorInfo&) = delete;
    ZipErrorInfo& operator=(const ZipErrorInfo&) = delete;

    zip_error_t* get() noexcept { return &error_; }
    const char* text() noexcept { return zip_error_strerror(&error_); }

private:
    zip_error_t error_;
};

} // namespace opc::detail
