#pragma once

#include "platform/SeamExport.hpp"
#include "platform/system/NativePath.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace platform {

/// A regular file opened for reading; it is closed with the object.
///
/// Only a regular file is ever opened: a folder, pipe, socket or device counts as missing, and
/// examining it neither blocks nor changes it. Others may read, write and remove the file while it
/// is open, and programs that the process starts do not inherit it.
class DOCPARSER_SEAM_EXPORT RegularFile {
public:
    /// Opens a file.
    /// \returns  empty if there is no such regular file, it may not be read, or the path contains
    ///           NUL
    static std::optional<RegularFile> open(const NativePath& file) noexcept;

    /// Takes the file over; `other` may then only be destroyed or assigned to.
    RegularFile(RegularFile&& other) noexcept;
    /// Closes its own file and takes the other over.
    RegularFile& operator=(RegularFile&& other) noexcept;
    ~RegularFile();

    /// Returns the current size of the file in bytes.
    /// \throws std::system_error  the system does not report it
    std::uint64_t size() const;

    /// Reads from an offset until the buffer is full or the file ends.
    /// \param offset  in bytes from the start of the file
    /// \param buffer  receives up to `length` bytes
    /// \returns       how many bytes were read
    /// \throws std::system_error  the file could not be read
    std::size_t readAt(std::uint64_t offset, char* buffer, std::size_t length) const;

private:
    explicit RegularFile(std::intptr_t handle) noexcept : handle_(handle) {}

    std::intptr_t handle_; // the system's; negative once moved from
};

} // namespace platform
