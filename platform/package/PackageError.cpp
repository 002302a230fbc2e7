#include "platform/package/PackageError.hpp"

namespace opc {

// Out of line, so that one library holds the types' identities and every other can catch them.
PackageError::~PackageError() = default;
PackageLimitError::~PackageLimitError() = default;

} // namespace opc
