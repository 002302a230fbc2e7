#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

// What can be typed after "refdoc". The parser, the manual page and the shell completions are all
// made from it, so that none of them can tell something else than the others. Texts are UTF-8
// sentences on one line, without a period at the end of those that stand in a list.

/// What a word on the command line is, for whoever offers words to choose from.
enum class ValueKind {
    None,       ///< no value: a flag
    Folder,     ///< a folder of the file system
    File,       ///< a file of the file system
    Path,       ///< either of them
    Rule,       ///< a rule of "check"
    Choice,     ///< one of OptionEntry::choices
    Language,   ///< a language, as in "ja"
    Languages,  ///< languages with commas between them
    Sections,   ///< keys of sections with commas between them
    Product,    ///< the name of a full resource file, without ".json"
    Href,       ///< the link of an item of the product that stands before it
    LookupName, ///< a name of the lookup index
};

struct OptionEntry {
    std::string_view name;        ///< "--install"
    std::string_view placeholder; ///< "DIR"; empty for a flag
    ValueKind kind;
    std::string_view help;
    std::vector<std::string_view> choices{}; ///< the words of ValueKind::Choice
    std::string_view shortName{};            ///< "-h"; empty for most
    std::string_view excludes{};             ///< the option that can't stand beside it
    bool isList = false;          ///< may be given more than once; else the last one wins
    bool isValueOptional = false; ///< a value follows after "=" only
};

struct ArgumentEntry {
    std::string_view name; ///< "PRODUCT"
    ValueKind kind;
    bool isRequired; ///< else it may be left out
    bool isList;     ///< the last one of a command may stand for any number of words
    std::string_view help;
};

struct CommandEntry {
    std::string_view name;
    std::string_view help;        ///< what it does, in one line
    std::string_view description; ///< sentences for the manual page
    std::vector<ArgumentEntry> arguments{};
    std::vector<OptionEntry> options{}; ///< those that no other command has
};

/// Something and what there is to say about it.
struct Remark {
    std::string_view subject;
    std::string_view text;
};

struct CommandTable {
    std::string_view program;
    std::string_view summary;                  ///< what the program is for, in one line
    std::vector<std::string_view> description; ///< paragraphs
    std::vector<OptionEntry> options;          ///< before or after any command
    std::vector<CommandEntry> commands;
    std::vector<Remark> exitStatuses;
    std::vector<Remark> environment;
    std::vector<Remark> files;
    std::vector<Remark> examples; ///< command lines
    std::vector<std::string_view> seeAlso;
};

/// The table of this program.
const CommandTable& commandTable();

/// The command of this name; null when there is none.
const CommandEntry* findCommand(const CommandTable& table, std::string_view name);

/// The option of this name or short name that may stand beside the command; null when there is
/// none.
/// \param command  null before a command is known
const OptionEntry* findOption(const CommandTable& table, const CommandEntry* command,
                              std::string_view name);

/// The text with an upper-case letter at its start and a period at its end.
std::string sentenceOf(std::string_view text);

/// The command's name and arguments as they are typed: "show PRODUCT [HREF...]".
std::string synopsisOf(const CommandEntry& command);

} // namespace refdoc
