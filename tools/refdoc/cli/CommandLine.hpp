#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/CommandTable.hpp"

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace refdoc {

/// The options that were given, with their values as typed.
class OptionValues {
public:
    void add(std::string_view option, std::string value);

    bool has(std::string_view option) const { return values_.contains(option); }

    /// Returns the last value of the option; absent if the option was not given.
    std::optional<std::string> value(std::string_view option) const;

    /// Returns all values of the option in the order they were given.
    std::vector<std::string> values(std::string_view option) const;

private:
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
};

/// The words of a command line, sorted by the table, and what is wrong with them.
struct CommandLine {
    const CommandEntry* command = nullptr; ///< null if no word is a command
    std::vector<std::string> arguments{};  ///< of the command
    OptionValues options{};
    const OptionEntry* openOption = nullptr; ///< the option whose value the next word would be
    bool onlyArguments = false; ///< after "--": the next word is neither an option nor a command
    std::string valueFault{}; ///< a complaint about the first invalid value; empty if there is none
    std::string wordFault{};  ///< the same about the first unknown option or command
};

/// Returns whether the command reads the current reference root; true if there is no command yet.
bool readsRoot(const CommandLine& line);

/// A valid command line that asks for something impossible; the exit status is that of wrong usage.
class UsageError : public std::logic_error {
    using std::logic_error::logic_error;
};

/// Sorts the words that follow the program's name. Every fault is recorded and skipped, so that the
/// result of an unfinished command line is useful too.
CommandLine sortWords(const CommandTable& table, const std::vector<std::string>& words);

/// Parses the words that follow the program's name.
///
/// - "--option value" and "--option=value" are the same; the value may look like anything. Options
///   and commands cannot be abbreviated.
/// - The value in "--flag=value" is ignored; "-hx" is "-h".
/// - After "--", a word is an argument, or the value of an option before the "--". A word like
///   "-", "-5", "-!" or "---" is always an argument.
///
/// Help and version have precedence over all faults except invalid values.
///
/// \returns  the sorted words if they are complete and valid; otherwise the answer to print: the
///           help, the version, or a complaint about wrong usage
std::variant<CommandLine, Answer> parseCommandLine(const CommandTable& table,
                                                   const std::vector<std::string>& words);

/// Returns the complaint about a word that is no command, with a similar one if there is one.
std::string unknownCommand(const CommandTable& table, const std::string& word);

/// Returns the answer to an invalid command line.
Answer wrongUsage(const CommandTable& table, const std::string& fault);

} // namespace refdoc
