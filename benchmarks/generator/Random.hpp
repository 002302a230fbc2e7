#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace reference::docparser::benchmarks {

/// Numbers that are the same on every machine for the same seed; the standard library's
/// distributions promise no such thing.
class Random {
public:
    explicit Random(std::uint64_t seed) noexcept : state_(seed) {}

    std::uint64_t next() noexcept {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }

    /// One of 0 ... count - 1.
    std::size_t below(std::size_t count) noexcept {
        return static_cast<std::size_t>(next() % count);
    }

    /// At least 0 and less than 1.
    double fraction() noexcept { return static_cast<double>(next() >> 11) * 0x1.0p-53; }

    bool chance(double probability) noexcept { return fraction() < probability; }

    /// A count from 0 on that is small mostly and has this mean.
    std::size_t count(double mean) noexcept {
        return static_cast<std::size_t>(std::log1p(-fraction()) / std::log(mean / (1 + mean)));
    }

    std::string_view pick(std::span<const std::string_view> words) noexcept {
        return words[below(words.size())];
    }

private:
    std::uint64_t state_;
};

} // namespace reference::docparser::benchmarks
