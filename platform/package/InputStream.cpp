#include "platform/package/InputStream.hpp"

namespace opc {

InputStream::~InputStream() = default;

} // namespace opc
