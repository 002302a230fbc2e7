#include "platform/except/IException.hpp"

namespace foundation::core::except {

IException::~IException() noexcept = default;
IInternalException::~IInternalException() noexcept = default;

} // namespace foundation::core::except
