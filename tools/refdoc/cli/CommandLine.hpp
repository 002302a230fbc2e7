#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/CommandTable.hpp"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace refdoc {

/// The words of a command line, sorted by what they are; as they were typed.
struct ParsedWords {
    std::string command;
    std::map<std::string, std::string, std::less<>>
        options; ///< those given, by name; a flag's value is the empty text
    std::map<std::string, std::vector<std::string>, std::less<>>
        lists; ///< the values of the options that may be given more than once
    std::vector<std::string> arguments;

    bool has(std::string_view option) const { return options.contains(option); }

    /// The values of an option that may be given more than once.
    std::vector<std::string> values(std::string_view option) const;

    /// The value of an option; absent when it was not given.
    std::optional<std::string> value(std::string_view option) const;
};

/// Parses a command line by the table.
/// \param arguments  what follows the program's name
/// \returns          the words; or the answer to give at once: help, the version, or a complaint
///                   about wrong usage
std::variant<ParsedWords, Answer> parseCommandLine(const CommandTable& table,
                                                   const std::vector<std::string>& arguments);

} // namespace refdoc
