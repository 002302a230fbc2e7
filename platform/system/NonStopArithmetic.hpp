#pragma once

#include <cfenv>

namespace platform {

/// Disables the floating-point traps of the calling thread during the object's lifetime and
/// restores traps and flags afterwards.
///
/// For code that converts numbers from files: a number that is too large overflows to infinity,
/// which terminates the process if the host application has enabled the trap.
class NonStopArithmetic {
public:
    NonStopArithmetic() noexcept { std::feholdexcept(&before_); }
    ~NonStopArithmetic() { std::fesetenv(&before_); }
    NonStopArithmetic(const NonStopArithmetic&) = delete;
    NonStopArithmetic& operator=(const NonStopArithmetic&) = delete;

private:
    std::fenv_t before_{};
};

} // namespace platform
