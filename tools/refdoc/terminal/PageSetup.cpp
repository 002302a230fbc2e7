#include "tools/refdoc/terminal/PageSetup.hpp"

#include "platform/terminal/ProgramText.hpp"

#include <algorithm>
#include <charconv>
#include <limits>

namespace refdoc {

namespace {

constexpr std::size_t kUsualWidth = 80;
constexpr std::size_t kNarrowestText = 20;
constexpr std::size_t kWidestText = 100;

// Returns 0 for everything but a positive number.
std::size_t parseWidth(const std::string& text) {
    std::size_t width = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, width);
    return error == std::errc() && stop == end ? width : 0;
}

std::size_t chooseWidth(const platform::OutputDevice& device,
                        const LayoutEnvironment& environment) {
    if (const std::size_t width = environment.columns ? parseWidth(*environment.columns) : 0)
        return width;
    return device.columns > 0 ? device.columns : kUsualWidth;
}

bool wantsColor(ColorChoice choice, const platform::OutputDevice& device,
                const LayoutEnvironment& environment) {
    if (choice != ColorChoice::Auto)
        return choice == ColorChoice::Always;
    return device.isTerminal && environment.noColor.value_or("").empty() &&
           environment.term != "dumb";
}

} // namespace

LayoutEnvironment readLayoutEnvironment() {
    using platform::environmentVariable;
    return {environmentVariable("NO_COLOR"), environmentVariable("COLUMNS"),
            environmentVariable("TERM")};
}

PageSetup choosePageSetup(ColorChoice color, const platform::OutputDevice& device,
                          const LayoutEnvironment& environment) {
    const std::size_t width = chooseWidth(device, environment);
    return {std::clamp(width, kNarrowestText, kWidestText),
            device.isTerminal ? width : std::numeric_limits<std::size_t>::max(),
            wantsColor(color, device, environment)};
}

} // namespace refdoc
