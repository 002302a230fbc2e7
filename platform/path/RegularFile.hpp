#pragma once

#include "platform/Export.hpp"
#include "platform/path/Path.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace fl::filesystem {

/// What bears a name on the disk.
enum class FileKind {
    Missing, ///< nothing, or what the system does not let the process see
    Regular,
    Other ///< a folder, pipe, socket or device; links count as what they lead to
};

/// Asks what bears the name. Nothing is opened, nothing blocks; NUL in a path names nothing.
DOCPARSER_PLATFORM_EXPORT FileKind kindOf(const native_string& file) noexcept;

/// A regular file opened for reading; it is closed with the object.
///
/// Nothing else is ever opened in its stead: a folder, pipe, socket or device that bears the name
/// counts as missing, and looking at it neither blocks nor changes it. Other openers are denied
/// nothing, and programs that the process starts do not inherit the file.
class DOCPARSER_PLATFORM_EXPORT RegularFile {
public:
    /// Opens the file; empty when there is no such regular file, it may not be read, or the path
    /// holds NUL.
    static std::optional<RegularFile> open(const native_string& file) noexcept;

    /// Takes the file over; of `other` only destruction and assignment are left.
    RegularFile(RegularFile&& other) noexcept;
    /// Closes its own file and takes the other over.
    RegularFile& operator=(RegularFile&& other) noexcept;
    ~RegularFile();

    /// The file's size now, in bytes.
    /// \throws std::system_error  the system does not tell
    std::uint64_t size() const;

    /// Reads from a place of the file until `room` is full or the file ends.
    /// \param offset  bytes from the start of the file
    /// \param room    where the bytes go, `length` of them
    /// \returns       how many bytes were read
    /// \throws std::system_error  the system could not read
    std::size_t readAt(std::uint64_t offset, char* room, std::size_t length) const;

private:
    explicit RegularFile(std::intptr_t handle) noexcept : handle_(handle) {}

    std::intptr_t handle_; // the system's; negative once moved from
};

} // namespace fl::filesystem
