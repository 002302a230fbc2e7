#pragma once

#include "platform/terminal/OutputDevice.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace refdoc {

enum class ColorChoice { Auto, Always, Never };

/// The environment variables that bear on the layout; absent means not set.
struct LayoutEnvironment {
    std::optional<std::string> noColor; ///< NO_COLOR
    std::optional<std::string> columns; ///< COLUMNS
    std::optional<std::string> term;    ///< TERM
};

/// How text for people is laid out. Widths are in columns of a terminal.
struct PageSetup {
    std::size_t textWidth; ///< where text is wrapped
    std::size_t lineWidth; ///< where a line that is never wrapped is cut
    bool color;
};

/// The variables of this process.
LayoutEnvironment readLayoutEnvironment();

/// Chooses the layout.
///
/// The width is COLUMNS, else the terminal's, else 80; text keeps between 40 and 100 columns, where
/// it reads well. Lines are cut on a terminal alone: a file or a pipe gets them whole. "auto" means
/// colour on a terminal, unless NO_COLOR is set to anything but the empty text, or TERM is "dumb".
PageSetup choosePageSetup(ColorChoice color, const platform::OutputDevice& device,
                          const LayoutEnvironment& environment);

} // namespace refdoc
