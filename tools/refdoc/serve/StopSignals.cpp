#include "tools/refdoc/serve/StopSignals.hpp"

#include <atomic>
#include <csignal>

namespace refdoc::serve {

namespace {

std::atomic<bool> isSignalReceived = false;
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void noteSignal(int) {
    isSignalReceived = true;
}

} // namespace

StopSignals::StopSignals() {
    isSignalReceived = false;
    interrupt_ = std::signal(SIGINT, noteSignal);
    terminate_ = std::signal(SIGTERM, noteSignal);
}

StopSignals::~StopSignals() {
    std::signal(SIGINT, interrupt_);
    std::signal(SIGTERM, terminate_);
}

bool StopSignals::isReceived() const noexcept {
    return isSignalReceived;
}

} // namespace refdoc::serve
