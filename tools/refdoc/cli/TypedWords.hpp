#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// A command line that is still being typed, up to the word under the cursor.
struct TypedWords {
    std::vector<std::string> options;      ///< the options so far, with their values
    const CommandEntry* command = nullptr; ///< null before a command
    std::vector<std::string> arguments;    ///< of the command, so far
    const OptionEntry* option = nullptr;   ///< the one whose value the word is; null: none
    bool isAfterDashes = false;            ///< after "--" nothing is an option
    std::string word;                      ///< so far; of "--option=value" the value
};

/// Sorts the words by the table. What it does not know is ignored; in a folder that starts with
/// "~" the variable HOME takes its place.
/// \param words  after the program's name; the last one is the one under the cursor
TypedWords sortWords(const CommandTable& table, const std::vector<std::string>& words);

} // namespace refdoc
