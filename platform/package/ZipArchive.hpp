#pragma once

#include "platform/package/PackageError.hpp"
#include "platform/package/ZipSource.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace opc::detail {

/// One zip package: its file, its directory once it is open, and what has been read of it.
/// Shared by all objects that stand for the package. One thread at a time.
class ZipArchive {
public:
    /// \param file  the package's file
    /// \param path  its path, for messages
    /// \throws std::system_error  the system does not tell the file's size
    ZipArchive(platform::RegularFile file, std::u16string_view path);

    /// Reads the directory; nothing happens when it has been read before.
    /// \throws PackageError  the file is no zip, or a broken one
    void open();

    /// How many entries there are; they are named by their places in the directory, from 0.
    /// \throws PackageError  the package is not open
    std::uint64_t entryCount() const;

    /// The full name of an entry. Bytes that are well-formed UTF-8 are taken as that; others are
    /// CP437, unless they are flagged as UTF-8: then U+FFFD stands for what is ill-formed.
    /// \throws PackageError  memory is short
    std::u16string entryName(std::uint64_t index);

    /// What the directory says about an entry.
    /// \throws PackageError  it cannot be had
    zip_stat_t entryDescription(std::uint64_t index);

    /// Opens an entry for reading.
    /// \throws PackageError  it is encrypted, compressed in an unknown way or not in its place
    ZipFileHandle openEntry(std::uint64_t index);

    /// The message of an entry's failure, with the reason why the file could not be read if that is
    /// known.
    std::string entryFailure(std::uint64_t index, std::string_view reason);

    /// How many bytes have come out of all entries so far.
    std::uint64_t deliveredBytes() const noexcept { return deliveredBytes_; }
    void countDelivered(std::uint64_t bytes) noexcept { deliveredBytes_ += bytes; }

private:
    ZipHandle openArchive(std::string& reason, const std::vector<FlaggedEntry>& hidden);
    std::vector<FlaggedEntry> flaggedEntries();
    /// The bytes of an entry's name as the directory has them, never null.
    const char* rawName(std::uint64_t index) const noexcept;
    std::string reasonOf(std::string_view reason);

    ZipSource source_;
    std::string path_;                 // UTF-8
    std::vector<FlaggedEntry> hidden_; // entries whose flag libzip did not see
    ZipHandle archive_;                // last, so that it goes before its source
    std::uint64_t deliveredBytes_ = 0;
};

} // namespace opc::detail
