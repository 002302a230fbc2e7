#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace docparser_tests {

/// Counts what each of several threads has done, and ends the process when one of them has not
/// come forward for a minute: it waits for something that never comes, and nothing can interrupt
/// it.
class ProgressWatch {
public:
    explicit ProgressWatch(std::size_t threadCount);
    ~ProgressWatch();
    ProgressWatch(const ProgressWatch&) = delete;
    ProgressWatch& operator=(const ProgressWatch&) = delete;

    /// The thread of this number has done a step, or has nothing more to do when `isAtEnd`.
    void step(std::size_t thread, bool isAtEnd = false) noexcept;

    /// How many steps a thread has done.
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
    std::thread watcher_; // last, since it uses the others
};

} // namespace docparser_tests
