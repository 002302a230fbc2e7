#include "tools/refdoc/http/Versions.hpp"

namespace refdoc::http {

Versions::Versions()
    : current_(std::chrono::duration_cast<std::chrono::milliseconds>(
                   std::chrono::system_clock::now().time_since_epoch())
                   .count()) {}

std::int64_t Versions::current() const {
    const std::lock_guard lock(mutex_);
    return current_;
}

void Versions::advance() {
    {
        const std::lock_guard lock(mutex_);
        ++current_;
    }
    changed_.notify_all();
}

std::int64_t Versions::waitForOther(std::int64_t known, std::chrono::milliseconds limit) const {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, limit, [&] { return current_ != known; });
    return current_;
}

} // namespace refdoc::http
