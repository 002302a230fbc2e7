#pragma once

#include "platform/terminal/OutputDevice.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace refdoc {

enum class ColorChoice { Auto, Always, Never };

/// The environment variables that affect the layout; absent means not set.
struct LayoutEnvironment {
    std::optional<std::string> noColor; ///< NO_COLOR
    std::optional<std::string> columns; ///< COLUMNS
    std::optional<std::string> term;    ///< TERM
};

/// The layout of text for people. Widths are in columns of a terminal.
struct PageSetup {
    std::size_t textWidth; ///< where text is wrapped
    std::size_t lineWidth; ///< where a record is cut or folded
    bool color;
};

/// Reads the environment variables of this process.
LayoutEnvironment readLayoutEnvironment();

/// Chooses the layout.
///
/// The width is COLUMNS, or the terminal's, or 80. Text is wrapped at 20 to 100 columns.
/// Records are cut and folded only on a terminal; a file or a pipe gets complete lines. `Auto`
/// means colour on a terminal, unless NO_COLOR is set and not empty, or TERM is "dumb".
PageSetup choosePageSetup(ColorChoice color, const platform::OutputDevice& device,
                          const LayoutEnvironment& environment);

} // namespace refdoc
