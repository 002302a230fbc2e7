#include "platform/system/Cancellation.hpp"

namespace platform {

// Windows has no cancellation that unwinds a thread, so there is nothing to defer.

CancellationHold::CancellationHold() noexcept = default;

CancellationHold::~CancellationHold() = default;

void letCancellationPass() {}

} // namespace platform
