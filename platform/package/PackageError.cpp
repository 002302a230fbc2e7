#include "platform/package/PackageError.hpp"

namespace opc {

// Out of line, so that one library holds the type's identity and every other can catch it.
PackageError::~PackageError() = default;

} // namespace opc
