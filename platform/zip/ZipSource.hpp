#pragma once

#include "platform/zip/Directory.hpp"
#include "platform/zip/PackageFile.hpp"
#include "platform/zip/ZipHandles.hpp"

#include <cstdint>
#include <exception>
#include <span>
#include <utility>

namespace platform::zip {

/// Supplies libzip with the bytes of a package's file.
///
/// libzip calls back into the object: it cannot be moved and must outlive every archive that is
/// opened on it.
class ZipSource {
public:
    /// \throws std::system_error  the system does not report the file's size
    explicit ZipSource(RegularFile file) : file_(std::move(file)) {}
    ZipSource(const ZipSource&) = delete;
    ZipSource& operator=(const ZipSource&) = delete;

    PackageFile& file() noexcept { return file_; }

    /// Opens the archive for reading.
    /// \param error   receives the error if the file is not an archive
    /// \param hidden  entries whose UTF-8 flag is hidden from libzip, in the order of the directory
    /// \returns       the archive, or null if the file is not one
    ZipHandle openArchive(ZipErrorInfo& error, std::span<const FlaggedEntry> hidden);

    /// Returns and clears the exception of the last failed read; null if no read has failed since
    /// the last call. libzip itself reports only that a read failed.
    std::exception_ptr takeReadFailure() noexcept { return std::exchange(readFailure_, nullptr); }

private:
    static zip_int64_t serve(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t serve(void* data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t read(char* buffer, std::size_t length);
    zip_int64_t seek(void* target, zip_uint64_t length);
    zip_int64_t describe(zip_stat_t& description) const;

    PackageFile file_;
    std::uint64_t position_ = 0;
    ZipErrorInfo error_;
    std::exception_ptr readFailure_;
    std::span<const FlaggedEntry> hidden_; // empty unless an archive is being opened
};

} // namespace platform::zip
