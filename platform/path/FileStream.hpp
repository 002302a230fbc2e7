#pragma once

#include "platform/Export.hpp"
#include "platform/path/Path.hpp"
#include "platform/system/RegularFile.hpp"

#include <istream>
#include <optional>
#include <streambuf>

namespace fl::filesystem {

/// What others may do with a file while it is open here.
enum class share_mode {
    deny_none ///< read, write and remove it
};

/// Reads a regular file without a buffer of its own, so that one read() of the stream is one read
/// of the file, straight into the caller's memory.
class DOCPARSER_PLATFORM_EXPORT file_buffer : public std::streambuf {
public:
    /// Opens the file as RegularFile::open() does; is_open() tells whether it could.
    explicit file_buffer(const platform::NativePath& file);

    /// Whether there is a file to read.
    bool is_open() const noexcept { return file_.has_value(); }

protected:
    /// Reads straight into `buffer` until it is full or the file ends; how many bytes came.
    std::streamsize xsgetn(char* buffer, std::streamsize length) override;
    /// The next byte, which stays the next.
    int_type underflow() override;
    /// The next byte, which is taken.
    int_type uflow() override;
    /// Moves the place of the next read and returns it; -1 when it would lie before the start, or
    /// there is no file.
    pos_type seekoff(off_type offset, std::ios_base::seekdir from,
                     std::ios_base::openmode mode) override;
    /// The same, from the start of the file.
    pos_type seekpos(pos_type position, std::ios_base::openmode mode) override;

private:
    std::optional<platform::RegularFile> file_;
    std::uint64_t position_ = 0;
};

/// A file input stream over a native path.
///
/// Bytes come as they are stored; no locale of the host changes them. A stream that is not open
/// has its failbit set, as one of the standard library's has. A read that fails sets badbit.
template <class CharT>
class basic_ifstream;

/// The stream of bytes, the one kind there is.
template <>
class DOCPARSER_PLATFORM_EXPORT basic_ifstream<char> : public std::istream {
public:
    /// Opens `file` when it is a regular file that may be read; otherwise the stream is not open.
    /// \param mode   std::ios::in with std::ios::binary
    /// \param share  what other openers may do meanwhile
    basic_ifstream(const platform::NativePath& file, std::ios_base::openmode mode,
                   share_mode share);
    ~basic_ifstream() override;

    /// Whether there is a file to read.
    bool is_open() const noexcept { return buffer_.is_open(); }

private:
    file_buffer buffer_;
};

/// What files are read with.
using ifstream = basic_ifstream<char>;

} // namespace fl::filesystem
