#pragma once

#include "platform/terminal/OutputDevice.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace refdoc {

/// What the choice of a pager depends on; absent means not set.
struct PagerEnvironment {
    std::optional<std::string> pager; ///< PAGER
    std::optional<std::string> term;  ///< TERM
    bool isLessInstalled = false;
};

/// Reads the environment variables of this process and searches the folders of PATH.
PagerEnvironment readPagerEnvironment();

/// Returns whether the device is a terminal that has too few lines for a text and the next prompt.
bool isLong(std::string_view text, const platform::OutputDevice& device);

/// Returns the command that shows long output: PAGER, without the spaces around it, or less if it
/// is installed and the terminal supports it.
/// \returns  empty for no pager, also if PAGER is empty or "cat"
std::string choosePager(const PagerEnvironment& environment);

} // namespace refdoc
