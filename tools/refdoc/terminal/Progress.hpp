#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>

namespace refdoc {

/// A progress bar on standard error for long runs. It appears with the first step or stage that
/// begins after a delay, is redrawn at most ten times a second during a stage, and is erased by the
/// destructor.
class Progress {
public:
    /// \param isShown  false: the bar is never drawn
    explicit Progress(bool isShown,
                      std::chrono::milliseconds delay = std::chrono::milliseconds(500));
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Begins a stage with this number of steps. After the delay, it is drawn at once.
    void begin(std::string_view stage, std::size_t steps);

    /// Any thread may call.
    void step();

    /// Returns the bar of a state, without control characters.
    static std::string barOf(std::string_view stage, std::size_t done, std::size_t steps);

private:
    using Clock = std::chrono::steady_clock;

    void draw(Clock::time_point now);

    bool isShown_;
    std::mutex mutex_; // guards the members below while a stage takes its steps
    bool isDrawn_ = false;
    Clock::time_point nextDrawing_;
    std::string stage_;
    std::size_t steps_ = 0;
    std::size_t done_ = 0;
};

} // namespace refdoc
