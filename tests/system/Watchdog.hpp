#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>
#include <utility>

namespace docparser_tests {

/// Runs a step on its own thread and rethrows what it throws. Aborts the process if the step takes
/// more than a minute: it is then in a deadlock, which nothing can interrupt.
template <class Step>
void runWatched(Step step) {
    std::packaged_task<void()> task(std::move(step));
    std::future<void> result = task.get_future();
    std::thread thread(std::move(task));
    if (result.wait_for(std::chrono::minutes(1)) != std::future_status::ready) {
        ADD_FAILURE() << "deadlock";
        std::abort();
    }
    thread.join();
    result.get();
}

} // namespace docparser_tests
