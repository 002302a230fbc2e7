#pragma once

#include <cfenv>

namespace foundation::core::except {

/// Keeps the traps of floating-point arithmetic that the host may have set off the calling thread
/// during its life, and puts traps and flags back as they were, whatever was raised meanwhile.
///
/// For what converts numbers that others wrote: one too large for the machine overflows on its way
/// to infinity, which ends a process that has asked for a trap.
class NonStopArithmetic {
public:
    NonStopArithmetic() noexcept { std::feholdexcept(&before_); }
    ~NonStopArithmetic() { std::fesetenv(&before_); }
    NonStopArithmetic(const NonStopArithmetic&) = delete;
    NonStopArithmetic& operator=(const NonStopArithmetic&) = delete;

private:
    std::fenv_t before_{};
};

} // namespace foundation::core::except
