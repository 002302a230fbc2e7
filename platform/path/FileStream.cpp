#include "platform/path/FileStream.hpp"

#include <limits>

namespace fl::filesystem {

file_buffer::file_buffer(const platform::NativePath& file)
    : file_(platform::RegularFile::open(file)) {}

std::streamsize file_buffer::xsgetn(char* buffer, std::streamsize length) {
    if (!file_ || length <= 0)
        return 0;
    const std::size_t count = file_->readAt(position_, buffer, static_cast<std::size_t>(length));
    position_ += count;
    return static_cast<std::streamsize>(count);
}

file_buffer::int_type file_buffer::underflow() {
    char byte = 0;
    if (!file_ || file_->readAt(position_, &byte, 1) == 0)
        return traits_type::eof();
    return traits_type::to_int_type(byte);
}

file_buffer::int_type file_buffer::uflow() {
    const int_type byte = underflow();
    if (!traits_type::eq_int_type(byte, traits_type::eof()))
        ++position_;
    return byte;
}

file_buffer::pos_type file_buffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                           std::ios_base::openmode) {
    if (!file_)
        return off_type(-1);
    off_type origin = 0;
    if (from == std::ios_base::cur)
        origin = static_cast<off_type>(position_);
    else if (from == std::ios_base::end)
        origin = static_cast<off_type>(file_->size());
    if (offset < -origin || offset > std::numeric_limits<off_type>::max() - origin)
        return off_type(-1);
    position_ = static_cast<std::uint64_t>(origin + offset);
    return origin + offset;
}

file_buffer::pos_type file_buffer::seekpos(pos_type position, std::ios_base::openmode mode) {
    return seekoff(off_type(position), std::ios_base::beg, mode);
}

basic_ifstream<char>::basic_ifstream(const platform::NativePath& file, std::ios_base::openmode,
                                     share_mode)
    : std::istream(nullptr), buffer_(file) {
    // Setting the buffer clears the state, so a stream that is not open fails after it.
    rdbuf(&buffer_);
    if (!is_open())
        setstate(std::ios_base::failbit);
}

// Defined here, so that the class's tables are in this library and nowhere else.
basic_ifstream<char>::~basic_ifstream() = default;

} // namespace fl::filesystem
