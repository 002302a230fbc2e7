#pragma once

#include "platform/package/InputStream.hpp"

#include <iosfwd>

namespace opc {

class StreamHelper {
public:
    static bool copyStreamToStream(InputStream& input, std::ostream& output);
};

} // namespace opc
