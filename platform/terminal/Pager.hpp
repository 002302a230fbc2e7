#pragma once

#include "platform/SeamExport.hpp"

#include <string>
#include <string_view>

namespace platform {

/// Shows a text through a pager: a program that reads standard input and shows it a page at a time
/// where standard output goes.
///
/// Waits until the pager ends; one that ends before it has read everything is no failure. Keys that
/// interrupt programs reach the pager alone in that time. The process must have no other child that
/// it waits for without naming it.
/// \param command  as the system's shell understands it, UTF-8. It sees the variables of this
///                 process and, unless LESS is among them, LESS as "FRX": end at once when all fits
///                 on the screen, pass colours on, leave the text on the screen
/// \param text     what to show, as it stands
/// \returns        false when the command could not be run; then nothing has been shown
DOCPARSER_SEAM_EXPORT bool showThroughPager(const std::string& command, std::string_view text);

/// Whether the shell would find a program of this name in the folders of PATH.
/// \param name  without a separator
DOCPARSER_SEAM_EXPORT bool isProgramInstalled(const std::string& name);

} // namespace platform
