#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>
#include <utility>

namespace docparser_tests {

/// Runs a step on a thread of its own and passes on what it throws. A step that has not ended
/// after a minute waits for something that never comes: the process ends, as nothing can interrupt
/// it.
template <class Step>
void runWatched(Step step) {
    std::packaged_task<void()> task(std::move(step));
    std::future<void> result = task.get_future();
    std::thread thread(std::move(task));
    if (result.wait_for(std::chrono::minutes(1)) != std::future_status::ready) {
        ADD_FAILURE() << "the step waits for something";
        std::abort();
    }
    thread.join();
    result.get();
}

} // namespace docparser_tests
