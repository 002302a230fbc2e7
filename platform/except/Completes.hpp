#pragma once

#include <exception>
#include <utility>

namespace foundation::core::except {

/// Runs a step whose failure its caller can do without, and tells whether it ran to its end.
///
/// Whatever the step throws is dropped; say at the call why that silence is right. The cancellation
/// of the thread, which travels as an exception on some systems, is no failure of the step and
/// passes through.
/// \param step  called once, without arguments
/// \returns     false when the step threw
template <class Step>
bool completes(Step&& step) {
    try {
        std::forward<Step>(step)();
        return true;
    } catch (...) {
        // What unwinds a thread that is cancelled is no exception of C++: there is no current one.
        if (!std::current_exception())
            throw;
        return false;
    }
}

} // namespace foundation::core::except
