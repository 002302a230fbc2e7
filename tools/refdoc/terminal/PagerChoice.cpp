#include "tools/refdoc/terminal/PagerChoice.hpp"

#include "platform/terminal/Pager.hpp"
#include "platform/terminal/ProgramText.hpp"

#include <algorithm>

namespace refdoc {

PagerEnvironment readPagerEnvironment() {
    return {platform::environmentVariable("PAGER"), platform::environmentVariable("TERM"),
            platform::isProgramInstalled("less")};
}

bool isLong(std::string_view text, const platform::OutputDevice& device) {
    // The line that the next prompt needs belongs to the text as well.
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    return device.isTerminal && device.rows > 0 && lines > device.rows;
}

namespace {

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") + 1 - first));
}

} // namespace

std::string choosePager(const PagerEnvironment& environment) {
    if (environment.pager) {
        const std::string command = trimmed(*environment.pager);
        return command == "cat" ? "" : command;
    }
    const std::string term = environment.term.value_or("");
    return environment.isLessInstalled && !term.empty() && term != "dumb" ? "less" : "";
}

} // namespace refdoc
