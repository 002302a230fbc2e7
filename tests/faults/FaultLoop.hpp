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
    std::optional<Result> result; ///< set if the ending is Ending::Result
    Ending ending = Ending::OtherException;
};

/// An operation of the library, and the checks of its outcome under faults.
template <class Result>
struct Operation {
    /// Runs before each run of the operation, without faults.
    std::function<void()> prepare;
    /// The operation. No cache may own its result.
    std::function<Result()> act;
    /// Checks the outcome and the state of the library after it, without faults.
    std::function<void(const Outcome<Result>&)> judge;
    /// Undoes lasting effects of the operation. Runs after each run, without faults.
    std::function<void()> restore;
};

/// libzip 1.7 leaks part of an entry's source if an allocation fails while it creates the source.
inline constexpr std::size_t kMostLeakedByLibzip = 1;

/// Runs an operation and classifies what it throws. Allocates nothing itself.
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

/// Runs an operation once under a fault. Expects that `judge` accepts the outcome, that the next
/// call on another thread returns the expected result, which proves that no lock is held, and that
/// no memory is leaked and no file left open.
/// \param arm  arm() returns the fault, which is active during its life
/// \returns    false if no call failed, so the operation ran to its end
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

/// Makes the first call of a type fail, then the second, and so on until the operation completes
/// without a failure. A first run without faults initialises what the process creates only once.
/// \param arm  arm(k) returns the fault of the k-th call
/// \returns    the number of runs with a failure
template <class Result, class Arm>
std::size_t failEachCall(const Operation<Result>& operation, Arm arm) {
    operation.prepare();
    const Result expected = operation.act();
    operation.restore();
    std::size_t nth = 1;
    while (runUnderFault(operation, expected, [&] { return arm(nth); })) {
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "when call " << nth << " fails";
            break;
        }
        ++nth;
    }
    return nth - 1;
}

/// Makes each allocation of an operation fail: first that one alone, then also all later ones.
/// \returns  the number of runs with a failure
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
