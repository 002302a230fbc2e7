#include "tools/refdoc/terminal/Progress.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace refdoc {

namespace {

constexpr std::chrono::milliseconds kInterval{100};
constexpr std::size_t kBarLength = 30;

} // namespace

Progress::Progress(bool isShown, std::chrono::milliseconds delay)
    : isShown_(isShown), nextDrawing_(Clock::now() + delay) {}

Progress::~Progress() {
    // "\x1b[K" erases the line from the cursor on.
    if (isDrawn_ && std::fputs("\r\x1b[K", stderr) >= 0)
        std::fflush(stderr);
}

void Progress::begin(std::string_view stage, std::size_t steps) {
    stage_ = stage;
    steps_ = steps;
    done_ = 0;
    // Steps of the former stage do not delay the name of this one.
    if (const Clock::time_point now = Clock::now(); isDrawn_ || now >= nextDrawing_)
        draw(now);
}

void Progress::step() {
    const std::lock_guard lock(mutex_);
    ++done_;
    if (const Clock::time_point now = Clock::now(); now >= nextDrawing_)
        draw(now);
}

void Progress::draw(Clock::time_point now) {
    if (!isShown_)
        return;
    nextDrawing_ = now + kInterval;
    isDrawn_ = true;
    fmt::print(stderr, "\r{}\x1b[K", barOf(stage_, done_, steps_));
    std::fflush(stderr);
}

std::string Progress::barOf(std::string_view stage, std::size_t done, std::size_t steps) {
    const std::size_t reached = std::min(done, steps);
    const std::size_t filled = steps == 0 ? kBarLength : reached * kBarLength / steps;
    return fmt::format("{} [{:#>{}}{:.>{}}] {}/{}", stage, "", filled, "", kBarLength - filled,
                       reached, steps);
}

} // namespace refdoc
