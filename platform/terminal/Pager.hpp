#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Shows a text through a pager: a program that reads standard input and writes it to standard
/// output one page at a time.
///
/// Waits until the pager exits; it may exit before it has read the whole text. Meanwhile the pager
/// is the only program that keys such as Ctrl+C interrupt. The process must not wait for arbitrary
/// child processes on another thread.
///
/// The environment is that of this process. LESS is set to "FRX" unless it is set already: exit at
/// once if the text fits on the screen, pass colours through, leave the text on the screen.
/// \param command  command line for the shell, UTF-8
/// \param text     the text to show, unchanged
/// \returns        false if the command could not be run; then nothing has been shown
bool showThroughPager(const std::string& command, std::string_view text);

/// Returns whether a program is in one of the folders of PATH.
/// \param name  file name without a folder
bool isProgramInstalled(const std::string& name);

} // namespace platform
