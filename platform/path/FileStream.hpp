#pragma once

#include "platform/Export.hpp"
#include "platform/system/FileBuffer.hpp"
#include "platform/system/NativePath.hpp"

#include <istream>

namespace fl::filesystem {

/// What others may do with a file while it is open.
enum class share_mode {
    deny_none ///< read, write and remove it
};

/// A file input stream over a native path.
///
/// Delivers the bytes as they are stored; the locale of the host application does not change them.
/// A stream that is not open has its failbit set, as a stream of the standard library has. A read
/// that fails sets badbit.
template <class CharT>
class basic_ifstream;

/// The stream of bytes, the only specialisation.
template <>
class DOCPARSER_PLATFORM_EXPORT basic_ifstream<char> : public std::istream {
public:
    /// Opens a file. The stream is not open if `file` is not a regular file or may not be read.
    /// \param mode   std::ios::in with std::ios::binary
    /// \param share  what others may do while the stream is open
    basic_ifstream(const platform::NativePath& file, std::ios_base::openmode mode,
                   share_mode share);
    ~basic_ifstream() override;

    /// Returns whether the file was opened.
    bool is_open() const noexcept { return buffer_.isOpen(); }

private:
    platform::FileBuffer buffer_;
};

/// The usual name of the stream of bytes.
using ifstream = basic_ifstream<char>;

} // namespace fl::filesystem
