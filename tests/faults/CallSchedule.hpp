#pragma once

#include <cstddef>

namespace docparser_tests {

/// Which calls fail, relative to the first failing call. Calls are numbered from 1.
enum class Repetition {
    Once,       ///< only the first
    FromThenOn, ///< the first and all later calls
    EverySecond ///< the first, third, fifth and so on, so that retrying a failed call succeeds
};

/// Counts calls and decides which of them fail. Allocates nothing.
class CallSchedule {
public:
    constexpr CallSchedule() = default;
    constexpr CallSchedule(std::size_t first, Repetition repetition)
        : first_(first), repetition_(repetition) {}

    /// Counts a call and returns whether it must fail.
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
