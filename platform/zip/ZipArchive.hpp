#pragma once

#include "platform/zip/Inflater.hpp"
#include "platform/zip/ZipSource.hpp"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace platform::zip {

/// A package, or an entry of one, cannot be read. what() names it and the cause.
class ZipError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One zip package: its file, its directory once it is open, and how much of it has been read.
/// Shared by all objects of the package. One thread at a time.
class ZipArchive {
public:
    /// \param file  the package's file
    /// \param path  its path, for messages
    /// \throws std::system_error  the system does not report the file's size
    ZipArchive(RegularFile file, std::u16string_view path);

    /// Reads the directory. Has no effect on an open package.
    /// \throws ZipError    the file is not a zip package, or is damaged
    /// \throws LimitError  the directory exceeds readLimits()
    void open();

    /// Returns the number of entries. An entry's index is its position in the directory, from 0.
    /// \throws ZipError  the package is not open
    std::uint64_t entryCount() const;

    /// Returns the full name of an entry. Well-formed UTF-8 is decoded as UTF-8. Other names are
    /// decoded as CP437, unless they are flagged as UTF-8: then U+FFFD replaces each ill-formed
    /// sequence.
    /// \throws ZipError  out of memory in libzip
    std::u16string entryName(std::uint64_t index);

    /// Returns what the directory says about an entry.
    /// \throws ZipError  libzip does not report it
    zip_stat_t entryDescription(std::uint64_t index);

    /// Opens an entry for reading.
    /// \throws ZipError  the entry is encrypted, compressed by an unknown method, or not at the
    ///                   position that the package states
    ZipFileHandle openEntry(std::uint64_t index);

    /// Reads and checks the whole content of a deflated entry that is at most 1 MiB long, both
    /// compressed and inflated. Faster than openEntry(), which supports all entries.
    /// \param description  the result of entryDescription() for the entry
    /// \returns  the content, with the size in `description`; null if the entry is not of this type
    ///           or cannot be read this way
    std::unique_ptr<char[]> readSmallEntry(std::uint64_t index, const zip_stat_t& description);

    /// Returns the message for an entry that cannot be read.
    /// \param reason  the cause; replaced by that of the last failed read of the file, if any
    std::string entryFailure(std::uint64_t index, std::string_view reason);

    /// Returns the number of bytes that all entries together have delivered.
    std::uint64_t deliveredBytes() const noexcept { return deliveredBytes_; }
    void countDelivered(std::uint64_t bytes) noexcept { deliveredBytes_ += bytes; }

private:
    void readDirectory();
    void allowReadingDirectory() noexcept;
    ZipHandle openArchive(const std::vector<FlaggedEntry>& hidden);
    /// Returns the bytes of an entry as stored; null if they cannot be read.
    std::unique_ptr<char[]> readPacked(std::uint64_t index, std::size_t length);
    std::vector<FlaggedEntry> flaggedEntries();
    /// Returns the bytes of an entry's name as stored, never null.
    const char* rawName(std::uint64_t index) const noexcept;
    std::string openFailure(std::string_view reason) const;

    ZipSource source_;
    std::string path_;                 // UTF-8
    std::vector<FlaggedEntry> hidden_; // entries whose flag libzip did not see
    Inflater inflater_;
    ZipHandle archive_; // last, because it must be destroyed before its source
    std::uint64_t deliveredBytes_ = 0;
};

} // namespace platform::zip
