#pragma once

#include <exception>
#include <utility>

namespace platform {

/// Runs a step whose failure the caller handles as a value.
///
/// The exception that the step throws goes no further; say at the call why that is right. The
/// cancellation of the thread, which travels as an exception on some systems, is not a failure and
/// passes through.
/// \param step  called once, without arguments
/// \returns     the exception that the step threw; null if it returned
template <class Step>
[[nodiscard]] std::exception_ptr failureOf(Step&& step) {
    try {
        std::forward<Step>(step)();
        return nullptr;
    } catch (...) {
        // A thread that is being cancelled unwinds without a C++ exception: none is current.
        std::exception_ptr failure = std::current_exception();
        if (!failure)
            throw;
        return failure;
    }
}

/// Runs a step and drops the exception that it throws, as failureOf() does.
template <class Step>
void ignoreFailure(Step&& step) {
    static_cast<void>(failureOf(std::forward<Step>(step)));
}

} // namespace platform
