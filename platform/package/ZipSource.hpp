#pragma once

#include "platform/package/NameFlags.hpp"
#include "platform/package/PackageFile.hpp"
#include "platform/package/ZipHandles.hpp"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace opc::detail {

/// Gives libzip the bytes of a package's file.
///
/// libzip calls back into the object, so it stays where it is and outlives every archive that is
/// opened on it.
class ZipSource {
public:
    /// \throws std::system_error  the system does not tell the file's size
    explicit ZipSource(platform::RegularFile file) : file_(std::move(file)) {}
    ZipSource(const ZipSource&) = delete;
    ZipSource& operator=(const ZipSource&) = delete;

    PackageFile& file() noexcept { return file_; }

    /// Opens the archive, read only.
    /// \param error   says why, when there is none
    /// \param hidden  entries whose UTF-8 flag libzip is not to see, in the order of the directory
    /// \returns       null when the file is no archive
    ZipHandle openArchive(ZipErrorInfo& error, const std::vector<FlaggedEntry>& hidden);

    /// Why the last failed read of the file failed, where libzip knows only that it did; empty when
    /// none has failed since the last call.
    std::string takeReadFailure() { return std::exchange(readFailure_, {}); }

private:
    static zip_int64_t serve(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t serve(void* data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t read(char* buffer, std::size_t length);
    void noteReadFailure(const char* reason) noexcept;
    zip_int64_t seek(void* target, zip_uint64_t length);
    zip_int64_t describe(zip_stat_t& description) const;
    void clearHiddenFlags(char* bytes, std::size_t length) const;

    PackageFile file_;
    std::uint64_t position_ = 0;
    ZipErrorInfo error_;
    std::string readFailure_;
    const std::vector<FlaggedEntry>* hidden_ = nullptr; // set while an archive is being opened
};

} // namespace opc::detail
