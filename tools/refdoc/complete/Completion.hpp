#pragma once

#include <string>
#include <vector>

namespace refdoc {

/// Answers `refdoc complete WORD...`, which the completion scripts of the shells ask: what the last
/// word could become, the words before it being what stands before it after "refdoc".
///
/// The options among these words hold, so that names come from the folders that they choose. Of
/// "--option=value" the value alone is answered; folders are left to the shell.
/// \returns  UTF-8; a line for each word that fits: the word, and a tab and what it is where there
///           is something to say. Nothing when nothing fits or something fails: whoever is typing
///           can do without an error message
std::string completionsOf(const std::vector<std::string>& words);

} // namespace refdoc
