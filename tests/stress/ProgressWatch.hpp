#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace docparser_tests {

/// Counts the steps of several threads and aborts the process if one of them makes no progress for
/// a minute, because a deadlocked thread cannot be interrupted. Thread-safe.
class ProgressWatch {
public:
    explicit ProgressWatch(std::size_t threadCount);
    ~ProgressWatch();
    ProgressWatch(const ProgressWatch&) = delete;
    ProgressWatch& operator=(const ProgressWatch&) = delete;

    /// Counts a step of a thread or, if `isAtEnd`, records that the thread has finished.
    void step(std::size_t thread, bool isAtEnd = false) noexcept;

    /// Returns the number of steps of a thread.
    std::uint64_t count(std::size_t thread) const noexcept;

private:
    struct Progress {
        std::atomic<std::uint64_t> steps = 0;
        std::atomic<bool> isAtEnd = false;
    };

    void watch();

    std::size_t threadCount_;
    std::unique_ptr<Progress[]> progress_;
    std::mutex mutex_; // guards isDone_
    std::condition_variable changed_;
    bool isDone_ = false;
    std::thread watcher_; // last because it uses the other members
};

} // namespace docparser_tests
