#include "platform/package/PackageError.hpp"

namespace opc {

// Out of line, so that a single library defines the type and every other one can catch it.
PackageError::~PackageError() = default;

} // namespace opc
