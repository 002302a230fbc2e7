#pragma once

#include "docparser/DocParserException.hpp"
#include "tests/faults/AllocationFaults.hpp"
#include "tests/support/OpenDescriptors.hpp"
#include "tests/system/Watchdog.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <new>
#include <optional>

namespace docparser_tests {

/// How an operation ended under a fault.
enum class Ending { Result, BadAlloc, DocParserException, OtherException };

template <class Result>
struct Outcome {
    std::optional<Result> result; ///< set when the ending is Ending::Result
    Ending ending = Ending::OtherException;
};

/// An operation of the library, and what holds for it under faults.
template <class Result>
struct Operation {
    /// Sets the stage, without faults; before each run.
    std::function<void()> prepare;
    /// The operation. What it returns belongs to no cache.
    std::function<Result()> act;
    /// Looks at the outcome and at what the library says next, without faults.
    std::function<void(const Outcome<Result>&)> judge;
    /// Puts back, without faults, what may stay behind; after each run.
    std::function<void()> restore;
};

/// libzip 1.7 leaks part of an entry's source if an allocation fails while it creates the source.
inline constexpr std::size_t kMostLeakedByLibzip = 1;

/// Runs an operation and sorts what it throws. Allocates nothing of its own.
template <class Result>
Outcome<Result> attempt(const std::function<Result()>& act) noexcept {
    Outcome<Result> outcome;
    try {
        outcome.result.emplace(act());
        outcome.ending = Ending::Result;
    } catch (const reference::docparser::DocParserException&) {
        outcome.ending = Ending::DocParserException;
    } catch (const std::bad_alloc&) {
        outcome.ending = Ending::BadAlloc;
    } catch (...) {
        outcome.ending = Ending::OtherException;
    }
    return outcome;
}

/// Runs an operation once under a fault and checks everything: the outcome is one that `judge`
/// accepts, the next call is answered right, and on another thread, so that no lock is held, and in
/// the end nothing is leaked and no file left open.
/// \param arm  arm() returns the fault, which is in force while it lives
/// \returns    false when nothing had failed: the operation has run to its end
template <class Result, class Arm>
bool runUnderFault(const Operation<Result>& operation, const Result& expected, Arm arm) {
    operation.prepare();
    const std::size_t descriptorsBefore = openDescriptors();
    bool hasFailed = false;
    {
        Outcome<Result> outcome;
        {
            const auto fault = arm();
            outcome = attempt(operation.act);
            hasFailed = fault.failures() > 0;
        }
        if (!hasFailed) {
            EXPECT_EQ(outcome.result, expected);
        }
        operation.judge(outcome);
    }
    EXPECT_LE(openDescriptors(), descriptorsBefore);
    runWatched([&] {
        operation.prepare();
        EXPECT_EQ(operation.act(), expected) << "the next call";
    });
    operation.restore();
    EXPECT_EQ(liveAllocations(Allocator::AnyOther), 0U) << "allocations leaked";
    EXPECT_LE(liveAllocations(Allocator::Libzip), kMostLeakedByLibzip);
    forgetLiveAllocations();
    return hasFailed;
}

/// Lets the first call of a kind fail, then the second, until the operation runs without meeting
/// the fault. What is made once for the process is made before.
/// \param arm  arm(k) returns the fault of the k-th call
/// \returns    how many runs met the fault
template <class Result, class Arm>
std::size_t failEachCall(const Operation<Result>& operation, Arm arm) {
    operation.prepare();
    const Result expected = operation.act();
    operation.restore();
    std::size_t nth = 1;
    while (runUnderFault(operation, expected, [&] { return arm(nth); })) {
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "with call " << nth << " failing";
            break;
        }
        ++nth;
    }
    return nth - 1;
}

/// Lets each allocation of an operation fail, once and from then on.
/// \returns  how many runs met a failure
template <class Result>
std::size_t failEachAllocation(const Operation<Result>& operation) {
    std::size_t runs = 0;
    for (const Repetition repetition : {Repetition::Once, Repetition::FromThenOn}) {
        SCOPED_TRACE(repetition == Repetition::Once ? "once" : "from then on");
        runs += failEachCall(operation,
                             [&](std::size_t nth) { return AllocationFaults(nth, repetition); });
    }
    return runs;
}

} // namespace docparser_tests
