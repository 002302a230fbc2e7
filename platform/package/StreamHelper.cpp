#include "platform/package/StreamHelper.hpp"

#include "platform/package/ContentSource.hpp"
#include "platform/package/PackageError.hpp"

#include <array>
#include <ostream>

namespace opc {

bool StreamHelper::copyStreamToStream(InputStream& input, std::ostream& output) {
    std::array<char, std::size_t{16} << 10> buffer;
    while (const std::size_t count = input.read(buffer.data(), buffer.size())) {
        if (!output.write(buffer.data(), static_cast<std::streamsize>(count)))
            throw PackageError("the content of an entry could not be written");
    }
    return true;
}

} // namespace opc
