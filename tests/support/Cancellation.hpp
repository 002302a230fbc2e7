#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>

namespace docparser_tests {

/// Runs an operation on a new thread.
/// \returns  whether the thread was cancelled before the operation returned
inline bool isCancelledIn(const std::function<void()>& operation) {
    struct Call {
        const std::function<void()>& operation;
        bool hasReturned = false;
    };
    Call call{operation};
    const auto run = [](void* argument) -> void* {
        Call& own = *static_cast<Call*>(argument);
        own.operation();
        own.hasReturned = true;
        return nullptr;
    };
    pthread_t thread{};
    EXPECT_EQ(pthread_create(&thread, nullptr, run, &call), 0);
    void* result = nullptr;
    EXPECT_EQ(pthread_join(thread, &result), 0);
    EXPECT_EQ(result == PTHREAD_CANCELED, !call.hasReturned);
    return !call.hasReturned;
}

/// Requests the cancellation of the calling thread, which ends at its next cancellation point.
inline void cancelThisThread() {
    EXPECT_EQ(pthread_cancel(pthread_self()), 0);
}

} // namespace docparser_tests
