#include "tools/refdoc/terminal/PagerChoice.hpp"

#include "platform/terminal/Pager.hpp"
#include "platform/terminal/ProgramText.hpp"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/trim.hpp>

#include <algorithm>

namespace refdoc {

PagerEnvironment readPagerEnvironment() {
    return {platform::environmentVariable("PAGER"), platform::environmentVariable("TERM"),
            platform::isProgramInstalled("less")};
}

bool isLong(std::string_view text, const platform::OutputDevice& device) {
    // The next prompt needs a line too.
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    return device.isTerminal && device.rows > 0 && lines > device.rows;
}

std::string choosePager(const PagerEnvironment& environment) {
    if (environment.pager) {
        const std::string command =
            boost::trim_copy_if(*environment.pager, boost::is_any_of(" \t"));
        return command == "cat" ? "" : command;
    }
    const std::string term = environment.term.value_or("");
    return environment.isLessInstalled && !term.empty() && term != "dumb" ? "less" : "";
}

} // namespace refdoc
