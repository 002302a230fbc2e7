#include "tools/refdoc/session/Parallel.hpp"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace refdoc {

namespace {

// For fewer calls than this, another thread takes longer to start than it saves.
constexpr std::size_t kCallsPerThread = 16;

class Work {
public:
    Work(std::size_t count, const std::function<void(std::size_t)>& call)
        : count_(count), failed_(count), call_(call) {}

    // Makes calls until none is left.
    void run() {
        for (std::size_t number = next_++; number < count_; number = next_++) {
            try {
                call_(number);
            } catch (...) {
                fail(number, std::current_exception());
            }
        }
    }

    // Throws the failure, if any.
    void finish() const {
        if (failure_)
            std::rethrow_exception(failure_);
    }

private:
    void fail(std::size_t number, std::exception_ptr failure) {
        next_ = count_;
        const std::lock_guard lock(mutex_);
        if (number >= failed_)
            return;
        failed_ = number;
        failure_ = std::move(failure);
    }

    const std::size_t count_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_; // guards failed_ and failure_
    std::size_t failed_;
    std::exception_ptr failure_;
    const std::function<void(std::size_t)>& call_;
};

} // namespace

void forEachInParallel(std::size_t count, const std::function<void(std::size_t)>& call) {
    forEachInParallel(count, count / kCallsPerThread, call);
}

void forEachInParallel(std::size_t count, std::size_t mostThreads,
                       const std::function<void(std::size_t)>& call) {
    const std::size_t threads =
        std::min<std::size_t>({std::thread::hardware_concurrency(), mostThreads, count});
    Work work(count, call);
    {
        std::vector<std::jthread> others;
        try {
            while (others.size() + 1 < threads)
                others.emplace_back([&work] { work.run(); });
        } catch (const std::system_error&) {
            // The system allows no further thread; those that have started do the work.
        }
        work.run();
    }
    work.finish();
}

} // namespace refdoc
