#pragma once

#include "benchmarks/harness/Meter.hpp"

namespace reference::docparser::benchmarks {

/// Adds up the processor time of the calls: what other programs take of the processor does not
/// count, what the system does for a call does.
class TimeMeter final : public Meter {
public:
    double seconds() const noexcept { return seconds_; }
    /// Of the first call alone.
    double firstCallSeconds() const noexcept { return firstCallSeconds_; }
    std::size_t inputBytes() const noexcept { return inputBytes_; }

private:
    void start() override;
    void stop() override;
    void account(std::size_t inputBytes) override;

    double started_ = 0;
    double seconds_ = 0;
    double firstCallSeconds_ = 0;
    std::size_t inputBytes_ = 0;
};

} // namespace reference::docparser::benchmarks
