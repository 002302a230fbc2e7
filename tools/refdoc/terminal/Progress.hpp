#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace refdoc {

/// A bar on standard error for runs that take long. It comes after half a second, is drawn anew ten
/// times a second at most, and is wiped out when it goes.
class Progress {
public:
    /// \param isShown  false: nothing is ever drawn
    explicit Progress(bool isShown);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Begins a stage of so many steps.
    void begin(std::string_view stage, std::size_t steps);
    void step();

    /// The bar in this state, without the control characters around it.
    static std::string barOf(std::string_view stage, std::size_t done, std::size_t steps);

private:
    using Clock = std::chrono::steady_clock;

    bool isShown_;
    bool isDrawn_ = false;
    Clock::time_point nextDrawing_;
    std::string stage_;
    std::size_t steps_ = 0;
    std::size_t done_ = 0;
};

} // namespace refdoc
