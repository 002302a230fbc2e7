#pragma once

#include "platform/zip/PackageFile.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform::zip {

/// The location of a package's directory in its file.
struct DirectoryLocation {
    std::uint64_t offset; ///< from the start of the file
    std::uint64_t length; ///< in bytes

    bool operator==(const DirectoryLocation&) const = default;
};

/// Finds the possible locations of a package's directory. Each is stated by an end record, and the
/// file has a directory record and enough bytes there. Duplicates are removed.
///
/// A valid package has one such location. A package comment can contain the bytes of an end record,
/// so several locations may have to be tried, in this order.
/// \throws std::system_error     the file cannot be read
/// \throws platform::LimitError  see PackageFile::read()
std::vector<DirectoryLocation> findDirectories(PackageFile& file);

/// Reads the bytes of a directory; empty if the file has become shorter.
/// \throws std::system_error     the file cannot be read
/// \throws platform::LimitError  see PackageFile::read()
std::string readDirectory(PackageFile& file, const DirectoryLocation& location);

/// What a directory says about one entry. The views are valid as long as the directory's bytes.
struct DirectoryRecord {
    std::uint64_t offset;         ///< from the start of the directory
    bool hasUtf8Flag;             ///< whether name and comment are flagged as UTF-8
    std::string_view name;        ///< the bytes as stored
    std::string_view unicodeName; ///< the name in the extra field for UTF-8 names; empty if none
};

/// Iterates over the records of a directory.
class DirectoryReader {
public:
    /// \param directory  the bytes of the directory; must outlive the reader
    explicit DirectoryReader(std::string_view directory) noexcept : directory_(directory) {}

    /// Returns the next record; empty at the end of the directory and where its bytes are not a
    /// record.
    std::optional<DirectoryRecord> next() noexcept;

    /// Returns whether every byte of the directory belongs to a record that next() has returned.
    bool isAtEnd() const noexcept { return position_ == directory_.size(); }

private:
    std::string_view directory_;
    std::size_t position_ = 0;
};

/// An entry whose name and comment are flagged as UTF-8.
struct FlaggedEntry {
    std::uint64_t index;      ///< position of the entry in the directory, from 0
    std::uint64_t flagOffset; ///< position in the file of the byte with the flag
};

/// Finds the flagged entries of a package, in the order of its directory.
///
/// Needed only if libzip refuses a package, which it does for a single flagged name that is not
/// UTF-8. With the flags cleared the package opens, and its other entries can be read.
/// \returns  empty if no entry is flagged or the directory is damaged
/// \throws std::system_error     the file cannot be read
/// \throws platform::LimitError  see PackageFile::read()
std::vector<FlaggedEntry> findFlaggedEntries(PackageFile& file);

/// Clears the flags of entries in a part of the package's file.
/// \param entries  in the order of the directory
/// \param offset   the position of `bytes` in the file
void clearUtf8Flags(std::span<const FlaggedEntry> entries, std::uint64_t offset,
                    std::span<char> bytes) noexcept;

} // namespace platform::zip
