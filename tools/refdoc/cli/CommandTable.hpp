#pragma once

#include "tools/refdoc/cli/Answer.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

// The commands and options of the program as data. The parser, the help, the manual page and
// completion all read the same table. Strings are UTF-8, on one line; the `help` of an entry has no
// period at its end.

struct Options;
struct PageSetup;

/// The type of a value on the command line, which decides what completion offers.
enum class ValueType {
    None,       ///< no value: a flag
    Choice,     ///< one of the entry's choices; the parser refuses any other value
    Name,       ///< a name that the command validates; completion offers the entry's choices
    Folder,     ///< a folder of the file system
    Path,       ///< a file or folder of the file system
    Language,   ///< a language, as in "ja"
    Languages,  ///< languages, separated by commas
    Sections,   ///< keys of sections, separated by commas
    Product,    ///< the name of a full resource file, without ".json"
    Href,       ///< the href of an item of the product in the first argument
    LookupName, ///< a name in the lookup index
    Command,    ///< the name of a command
};

/// A value that completion offers.
struct Choice {
    std::string_view name;
    std::string_view help{};
};

struct OptionEntry {
    std::string_view name;          ///< "--install"
    std::string_view placeholder{}; ///< "DIR"; empty for a flag
    ValueType type = ValueType::None;
    std::string_view help{};
    std::vector<Choice> choices{};
    std::string_view shortName{}; ///< "-h"; empty if there is none
    std::string_view group{};     ///< at most one option of a group may be given; empty: no group
    bool isValueOptional = false; ///< the value can only follow after "="
};

struct ArgumentEntry {
    std::string_view name; ///< "PRODUCT"
    ValueType type;
    bool isRequired = false;
    bool isList = false; ///< takes any number of words; only for the last argument of a command
    std::string_view help{};
    std::string_view alternative{}; ///< an option; exactly one of it and the argument is required
};

/// A term and its explanation.
struct Remark {
    std::string_view subject;
    std::string_view text; ///< sentences that follow it
};

/// When a command reads the current reference root.
enum class RootUse {
    Always,
    WithoutArguments, ///< the arguments name what it reads instead
    Never
};

struct CommandEntry {
    std::string_view name;
    std::string_view help{};        ///< what it does, in one line
    std::string_view description{}; ///< sentences that follow it
    std::vector<ArgumentEntry> arguments{};
    std::vector<OptionEntry> options{}; ///< valid only after the command
    std::string_view negative{};        ///< when the exit status is 1; empty: it never is
    std::vector<Remark> examples{};     ///< command lines
    RootUse rootUse = RootUse::Always;

    /// False if `run` applies the options to the library itself.
    bool isRunWithOptions = true;

    /// Runs the command. If it reads the current root, the options have been applied to the
    /// library.
    /// \throws std::exception, foundation::core::except::IException  the command failed
    Answer (*run)(const Options& options, const PageSetup& setup) = nullptr;
};

struct CommandTable {
    std::string_view program;
    std::string_view summary;                  ///< what the program does, in one line
    std::vector<std::string_view> description; ///< paragraphs
    std::vector<OptionEntry> options;          ///< valid before and after any command
    std::vector<CommandEntry> commands;
    std::vector<Remark> exitStatuses; ///< "1" means something else for each command
    std::vector<Remark> environment;
    std::vector<Remark> files;
    std::vector<std::string_view> seeAlso;
};

/// Returns the command of this name, or null.
const CommandEntry* findCommand(const CommandTable& table, std::string_view name);

/// Returns the options that are valid after the command, or before any if it is null: those of the
/// table, then the command's own. The pointers point into `table` and `*command`.
std::vector<const OptionEntry*> optionsFor(const CommandTable& table, const CommandEntry* command);

/// Returns the option of this name or short name among optionsFor(), or null.
const OptionEntry* findOption(const CommandTable& table, const CommandEntry* command,
                              std::string_view name);

/// Capitalizes the first letter and appends a period unless there is one.
std::string sentenceOf(std::string_view text);

/// Returns an argument as the usage shows it: "PRODUCT", "[HREF...]".
std::string synopsisOf(const ArgumentEntry& argument);

/// Returns the command's name and arguments: "show PRODUCT [HREF...]".
std::string synopsisOf(const CommandEntry& command);

} // namespace refdoc
