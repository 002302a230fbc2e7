#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace refdoc::http {

/// The version of what a server shows. It changes with every change of the files. Servers that
/// start one after the other have different versions. Thread-safe.
class Versions {
public:
    Versions();

    std::int64_t current() const;

    /// Begins the next version.
    void advance();

    /// Waits until the current version is not the known one, but at most for a duration.
    /// \returns  the current version
    std::int64_t waitForOther(std::int64_t known, std::chrono::milliseconds limit) const;

private:
    mutable std::mutex mutex_; // guards current_
    mutable std::condition_variable changed_;
    std::int64_t current_;
};

} // namespace refdoc::http
