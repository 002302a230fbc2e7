#include "platform/package/ContentSource.hpp"

namespace opc {

// Out of line, so that a single library emits the vtables and type information.
InputStream::~InputStream() = default;
ContentSource::~ContentSource() = default;

} // namespace opc
