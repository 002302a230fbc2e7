#pragma once

#include <cstddef>

namespace opc {

class InputStream {
public:
    virtual ~InputStream() = default;
    /// Returns the number of bytes read; 0 at the end.
    virtual std::size_t read(char* buffer, std::size_t length) = 0;
};

} // namespace opc
