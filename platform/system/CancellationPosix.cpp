#include "platform/system/Cancellation.hpp"

#include <pthread.h>

namespace platform {

CancellationHold::CancellationHold() noexcept {
    ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_);
}

CancellationHold::~CancellationHold() {
    int held = 0;
    ::pthread_setcancelstate(before_, &held);
}

void letCancellationPass() {
    ::pthread_testcancel();
}

} // namespace platform
