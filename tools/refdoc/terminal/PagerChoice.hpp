#pragma once

#include "platform/terminal/OutputDevice.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace refdoc {

/// What decides which pager there is; absent means not set.
struct PagerEnvironment {
    std::optional<std::string> pager; ///< PAGER
    std::optional<std::string> term;  ///< TERM
    bool isLessInstalled = false;
};

/// Asks the variables of this process and the folders of PATH.
PagerEnvironment readPagerEnvironment();

/// Whether a text fills more lines than the device, a terminal, has.
bool isLong(std::string_view text, const platform::OutputDevice& device);

/// The command that long output goes through: PAGER as it stands, else less where it is installed
/// and the terminal can do what less needs.
/// \returns  the empty text for none, which an empty PAGER and "cat" ask for
std::string choosePager(const PagerEnvironment& environment);

} // namespace refdoc
