#pragma once

#include "platform/Cxx20.hpp"

#include <exception>
#include <utility>

namespace platform {

/// Runs a step whose failure the caller handles as a value.
///
/// Catches every exception of the step; a comment at the call says why that is right. Does not stop
/// the cancellation of the thread, which unwinds like an exception on some systems.
/// \param step  called once, without arguments
/// \returns     the exception that the step threw; null if it returned
template <class Step>
[[nodiscard]] std::exception_ptr failureOf(Step&& step) {
    try {
        std::forward<Step>(step)();
        return nullptr;
    } catch (...) {
        // A cancelled thread unwinds without a C++ exception, so there is no current exception.
        std::exception_ptr failure = std::current_exception();
        if (!failure)
            throw;
        return failure;
    }
}

/// Runs a step and ignores the exception that it throws, under the rules of failureOf().
template <class Step>
void ignoreFailure(Step&& step) {
    static_cast<void>(failureOf(std::forward<Step>(step)));
}

} // namespace platform
