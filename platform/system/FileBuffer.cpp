#include "platform/system/FileBuffer.hpp"

#include <limits>

namespace platform {

FileBuffer::FileBuffer(const NativePath& file) : file_(RegularFile::open(file)) {}

std::streamsize FileBuffer::xsgetn(char* buffer, std::streamsize length) {
    if (!file_ || length <= 0)
        return 0;
    const std::size_t count = file_->readAt(position_, buffer, static_cast<std::size_t>(length));
    position_ += count;
    return static_cast<std::streamsize>(count);
}

FileBuffer::int_type FileBuffer::underflow() {
    char byte = 0;
    if (!file_ || file_->readAt(position_, &byte, 1) == 0)
        return traits_type::eof();
    return traits_type::to_int_type(byte);
}

FileBuffer::int_type FileBuffer::uflow() {
    const int_type byte = underflow();
    if (!traits_type::eq_int_type(byte, traits_type::eof()))
        ++position_;
    return byte;
}

FileBuffer::pos_type FileBuffer::seekoff(off_type offset, std::ios_base::seekdir from,
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

FileBuffer::pos_type FileBuffer::seekpos(pos_type position, std::ios_base::openmode mode) {
    return seekoff(off_type(position), std::ios_base::beg, mode);
}

} // namespace platform
