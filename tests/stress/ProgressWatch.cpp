#include "tests/stress/ProgressWatch.hpp"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace docparser_tests {

namespace {

constexpr std::chrono::minutes kLongestStep(1);

} // namespace

ProgressWatch::ProgressWatch(std::size_t threadCount)
    : threadCount_(threadCount),
      progress_(std::make_unique<Progress[]>(threadCount)),
      watcher_([this] { watch(); }) {}

ProgressWatch::~ProgressWatch() {
    {
        const std::lock_guard lock(mutex_);
        isDone_ = true;
    }
    changed_.notify_one();
    watcher_.join();
}

void ProgressWatch::step(std::size_t thread, bool isAtEnd) noexcept {
    if (isAtEnd)
        progress_[thread].isAtEnd = true;
    else
        ++progress_[thread].steps;
}

std::uint64_t ProgressWatch::count(std::size_t thread) const noexcept {
    return progress_[thread].steps;
}

void ProgressWatch::watch() {
    std::vector<std::uint64_t> before(threadCount_, 0);
    std::unique_lock lock(mutex_);
    while (!changed_.wait_for(lock, kLongestStep, [this] { return isDone_; })) {
        for (std::size_t thread = 0; thread < threadCount_; ++thread) {
            const std::uint64_t now = count(thread);
            if (now == before[thread] && !progress_[thread].isAtEnd) {
                std::fprintf(stderr, "thread %zu made no progress after step %llu\n", thread,
                             static_cast<unsigned long long>(now));
                std::abort();
            }
            before[thread] = now;
        }
    }
}

} // namespace docparser_tests
