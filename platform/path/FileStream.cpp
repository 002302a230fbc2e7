#include "platform/path/FileStream.hpp"

namespace fl::filesystem {

basic_ifstream<char>::basic_ifstream(const platform::NativePath& file, std::ios_base::openmode,
                                     share_mode)
    : std::istream(nullptr), buffer_(file) {
    // Setting the buffer clears the stream's state, so failbit is set after it.
    rdbuf(&buffer_);
    if (!is_open())
        setstate(std::ios_base::failbit);
}

// Defined here, so that the virtual tables of the class are in this library only.
basic_ifstream<char>::~basic_ifstream() = default;

} // namespace fl::filesystem
