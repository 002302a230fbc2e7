#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>

namespace refdoc {

// What makes a shell complete the words of a command line. The scripts know the folders and, where
// the shell has a form for them, the options of the table; everything else they ask the program for
// (see Completion.hpp), which looks where the options typed so far tell it to.

/// For bash 4.3 and later; needs no other package.
std::string bashCompletion(const CommandTable& table);

/// For zsh 5: an autoloaded function named "_" and the program.
std::string zshCompletion(const CommandTable& table);

/// For fish 3.
std::string fishCompletion(const CommandTable& table);

} // namespace refdoc
