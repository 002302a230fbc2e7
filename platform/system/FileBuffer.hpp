#pragma once

#include "platform/SeamExport.hpp"
#include "platform/system/NativePath.hpp"
#include "platform/system/RegularFile.hpp"

#include <cstdint>
#include <optional>
#include <streambuf>

namespace platform {

/// Reads a regular file without its own buffer, so that one read() of a stream is one read of
/// the file, straight into the caller's memory.
class DOCPARSER_SEAM_EXPORT FileBuffer : public std::streambuf {
public:
    /// Opens a file as RegularFile::open() does; isOpen() tells whether that succeeded.
    explicit FileBuffer(const NativePath& file);

    /// Returns whether the file was opened. Without a file every read is at its end.
    bool isOpen() const noexcept { return file_.has_value(); }

protected:
    /// Reads until the buffer is full or the file ends and returns the number of bytes read.
    std::streamsize xsgetn(char* buffer, std::streamsize length) override;
    /// Returns the next byte without taking it.
    int_type underflow() override;
    /// Takes and returns the next byte.
    int_type uflow() override;
    /// Sets and returns the position of the next read; -1 if it would lie before the start of the
    /// file, or if no file is open.
    pos_type seekoff(off_type offset, std::ios_base::seekdir from,
                     std::ios_base::openmode mode) override;
    /// Sets the position of the next read relative to the start of the file, as seekoff() does.
    pos_type seekpos(pos_type position, std::ios_base::openmode mode) override;

private:
    std::optional<RegularFile> file_;
    std::uint64_t position_ = 0; // of the next read
};

} // namespace platform
