#include "platform/Failure.hpp"

#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

#ifdef __linux__
#include <pthread.h>
#include <unistd.h>
#endif

namespace platform {

namespace {

TEST(FailureTest, IsNullIfTheStepReturns) {
    int runs = 0;
    EXPECT_EQ(failureOf([&] { ++runs; }), nullptr);
    EXPECT_EQ(failureOf([&] { return ++runs < 0; }), nullptr) << "the step's result is ignored";
    EXPECT_EQ(runs, 2);
}

TEST(FailureTest, IsTheExceptionThatTheStepThrows) {
    const std::exception_ptr failure = failureOf([] { throw std::runtime_error("closed"); });
    ASSERT_NE(failure, nullptr);
    try {
        std::rethrow_exception(failure);
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "closed");
    }
    EXPECT_NE(failureOf([] { throw 1; }), nullptr);
}

TEST(FailureTest, UnwindsAStepThatThrows) {
    const auto kept = std::make_shared<int>(1);
    ignoreFailure([&] {
        const std::shared_ptr<int> shared = kept;
        throw shared.use_count();
    });
    EXPECT_EQ(kept.use_count(), 1);
}

TEST(FailureTest, AcceptsMoveOnlySteps) {
    bool hasRun = false;
    ignoreFailure([&hasRun, owned = std::make_unique<int>(1)]() mutable {
        owned.reset();
        hasRun = true;
    });
    EXPECT_TRUE(hasRun);
}

#ifdef __linux__
// Waits inside a step for a byte that is never written; only a cancellation ends it.
void* waitInAStep(void* pipeEnd) {
    ignoreFailure([&] {
        char byte = 0;
        while (::read(*static_cast<int*>(pipeEnd), &byte, 1) != 0) {
        }
    });
    return nullptr;
}

TEST(FailureTest, LetsThreadCancellationThrough) {
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe(ends), 0);
    pthread_t thread = {};
    ASSERT_EQ(::pthread_create(&thread, nullptr, &waitInAStep, &ends[0]), 0);
    ASSERT_EQ(::pthread_cancel(thread), 0);
    void* result = nullptr;
    ASSERT_EQ(::pthread_join(thread, &result), 0);
    EXPECT_EQ(result, PTHREAD_CANCELED);
    ::close(ends[0]);
    ::close(ends[1]);
}
#endif

} // namespace

} // namespace platform
