#pragma once

#include "platform/Export.hpp"

#include <stdexcept>

namespace opc {

/// A package, or an entry of one, cannot be used.
///
/// what() is UTF-8. It names the package or the entry and the cause, without a final period.
class DOCPARSER_PLATFORM_EXPORT PackageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~PackageError() override;
};

} // namespace opc
