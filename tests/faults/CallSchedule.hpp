#pragma once

#include <cstddef>

namespace docparser_tests {

/// Which calls of those that are counted fail: the `first`, counted from 1, and what Repetition
/// adds to it.
enum class Repetition {
    Once,       ///< the first alone
    FromThenOn, ///< the first and all after it
    EverySecond ///< the first, the third and so on: each call that fails succeeds when repeated
};

/// Counts calls and tells which of them fail. Allocates nothing.
class CallSchedule {
public:
    constexpr CallSchedule() = default;
    constexpr CallSchedule(std::size_t first, Repetition repetition)
        : first_(first), repetition_(repetition) {}

    /// Counts one call; true when it is to fail.
    bool nextFails() noexcept {
        ++calls_;
        const bool fails = isDue();
        failures_ += fails ? 1 : 0;
        return fails;
    }

    std::size_t calls() const noexcept { return calls_; }
    std::size_t failures() const noexcept { return failures_; }

private:
    bool isDue() const noexcept {
        if (calls_ < first_)
            return false;
        switch (repetition_) {
        case Repetition::Once: return calls_ == first_;
        case Repetition::FromThenOn: return true;
        case Repetition::EverySecond: return (calls_ - first_) % 2 == 0;
        }
        return false;
    }

    std::size_t first_ = 0;
    Repetition repetition_ = Repetition::Once;
    std::size_t calls_ = 0;
    std::size_t failures_ = 0;
};

} // namespace docparser_tests
