#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Answers `refdoc complete WORD...`, which the completion scripts run: what the last word can
/// become. The words before it are those between "refdoc" and the cursor.
///
/// The options among the words apply, so that names come from the folders that the options choose.
/// Faults in the command line and failures are not reported, because they would disturb typing.
/// \returns  UTF-8 lines. The first is "folder" or "file" if the shell shall complete such a path,
///           which is the word or what follows "--option=". Otherwise it is "words", and each
///           further line is a complete word, optionally followed by a tab and a description. An
///           empty string if nothing can follow or the answer is unknown
std::string completionsOf(const CommandTable& table, std::vector<std::string> words);

} // namespace refdoc
