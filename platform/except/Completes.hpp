#pragma once

#include <exception>
#include <utility>

namespace foundation::core::except {

/// Runs a step whose failure its caller can do without, and hands that failure out.
///
/// Whatever the step throws goes no further; say at the call why that is right. The cancellation of
/// the thread, which travels as an exception on some systems, is no failure of the step and passes
/// through.
/// \param step  called once, without arguments
/// \returns     what the step threw; null when it ran to its end
template <class Step>
[[nodiscard]] std::exception_ptr failureOf(Step&& step) {
    try {
        std::forward<Step>(step)();
        return nullptr;
    } catch (...) {
        // What unwinds a thread that is cancelled is no exception of C++: there is no current one.
        std::exception_ptr failure = std::current_exception();
        if (!failure)
            throw;
        return failure;
    }
}

/// Runs a step as failureOf() does, drops its failure and tells whether it ran to its end.
/// \returns  false when the step threw
template <class Step>
bool completes(Step&& step) {
    return failureOf(std::forward<Step>(step)) == nullptr;
}

} // namespace foundation::core::except
