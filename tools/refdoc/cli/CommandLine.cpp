#include "tools/refdoc/cli/CommandLine.hpp"

#include "tools/refdoc/terminal/TextLayout.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <sstream>
#include <utility>

namespace refdoc {

namespace {

constexpr std::size_t kHelpWidth = 50; // beside the column of the names

// CLI11 gives some plain words a meaning of their own: "[a,b]" is two words, "{}" none, "++" ends a
// command, an empty text may be dropped. All of these can be names, and so a word that it could
// take for something else travels with this mark before it.
constexpr char kWordMark = '\x1f';

std::string marked(std::string_view word) {
    return kWordMark + std::string(word);
}

std::string unmarked(std::string word) {
    if (!word.empty() && word.front() == kWordMark)
        word.erase(0, 1);
    return word;
}

bool needsMark(std::string_view word) {
    return word.empty() ||
           std::string_view("[{%+\x1f").find(word.front()) != std::string_view::npos;
}

// "--lang=" gives the empty text, which CLI11 would take for a value that is still to come.
bool isOptionWithEmptyValue(std::string_view word) {
    return word.starts_with("--") && word.find('=') == word.size() - 1;
}

bool isOptionWithOptionalValue(const CommandTable& table, std::string_view word) {
    return std::ranges::any_of(table.commands, [&](const CommandEntry& command) {
        return std::ranges::any_of(command.options, [&](const OptionEntry& option) {
            return option.isValueOptional && option.name == word;
        });
    });
}

// The words for CLI11. After "--" every word is a name, whatever it looks like.
std::vector<std::string> markedWords(const CommandTable& table,
                                     const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    words.reserve(arguments.size());
    bool onlyNames = false;
    for (const std::string& argument : arguments) {
        if (onlyNames || needsMark(argument))
            words.push_back(marked(argument));
        else if (argument == "--")
            onlyNames = true;
        else if (isOptionWithEmptyValue(argument))
            words.push_back(argument + kWordMark);
        else if (isOptionWithOptionalValue(table, argument))
            words.push_back(argument + '=' + kWordMark);
        else
            words.push_back(argument);
    }
    return words;
}

std::string wrappedHelp(std::string_view help) {
    return fmt::format("{}", fmt::join(wrapText(help, kHelpWidth), "\n"));
}

// What stands below the options in the help.
std::string footerOf(const CommandTable& table) {
    std::string footer = fmt::format("The options of {} --help may stand before or after the "
                                     "command;\n\"--\" ends the options.\n",
                                     table.program) +
                         "\nExit status:\n";
    for (const Remark& status : table.exitStatuses) {
        std::string_view lead = status.subject;
        for (const std::string& line : wrapText(status.text, 70)) {
            footer += fmt::format("  {:3}{}\n", lead, line);
            lead = "";
        }
    }
    footer += "\nExamples:";
    for (const Remark& example : table.examples)
        footer += fmt::format("\n  {}", example.subject);
    return footer;
}

std::string alternatives(const std::vector<CommandEntry>& commands) {
    std::string words;
    for (const CommandEntry& command : commands) {
        if (!words.empty())
            words += &command == &commands.back() ? " or " : ", ";
        words += command.name;
    }
    return words;
}

// The command line as CLI11 sees it, bound to texts of this object.
class Parser {
public:
    explicit Parser(const CommandTable& table)
        : table_(table), app_(sentenceOf(table.summary), std::string(table.program)) {
        app_.require_subcommand(1);
        app_.fallthrough();
        app_.allow_windows_style_options(false); // "/help" is a path on every system
        app_.footer(footerOf(table));
        for (const OptionEntry& option : table.options)
            addOption(app_, option);
        for (const CommandEntry& command : table.commands)
            addCommand(command);
    }

    std::variant<ParsedWords, Answer> parse(std::vector<std::string> words) {
        std::ranges::reverse(words); // the order that CLI11 asks for
        try {
            app_.parse(std::move(words));
        } catch (const CLI::Success& request) {
            std::ostringstream text;
            app_.exit(request, text, text);
            return Answer{.output = text.str()};
        } catch (const CLI::RequiredError&) {
            return wrongUsage(whatIsNeeded());
        } catch (const CLI::ParseError& error) {
            return wrongUsage(error.what());
        }
        return parsedWords();
    }

private:
    void addOption(CLI::App& app, const OptionEntry& entry) {
        const std::string name(entry.name);
        const std::string names =
            entry.shortName.empty() ? name : std::string(entry.shortName) + "," + name;
        const std::string help = wrappedHelp(entry.help);
        if (name == "--help") {
            app.set_help_flag(names, help);
        } else if (name == "--version") {
            app.set_version_flag(names, "refdoc " REFDOC_VERSION, help);
        } else if (entry.kind == ValueKind::None) {
            CLI::Option* flag = app.add_flag(names, help);
            if (!entry.excludes.empty())
                flag->excludes(optionOf(app, std::string(entry.excludes)));
        } else {
            addTextOption(app, entry, names, help);
        }
    }

    // An option of the command, or one that all commands have.
    CLI::Option* optionOf(CLI::App& app, const std::string& name) {
        CLI::Option* option = app.get_option_no_throw(name);
        return option ? option : app_.get_option(name);
    }

    void addTextOption(CLI::App& app, const OptionEntry& entry, const std::string& names,
                       const std::string& help) {
        if (entry.isList) {
            app.add_option(names, lists_[std::string(entry.name)], help)
                ->type_name(std::string(entry.placeholder))
                ->allow_extra_args(false);
            return;
        }
        // The last one wins, so that an alias can be overruled.
        CLI::Option* option = app.add_option(names, values_[std::string(entry.name)], help)
                                  ->type_name(std::string(entry.placeholder))
                                  ->take_last();
        if (!entry.choices.empty())
            option->check(CLI::IsMember(
                std::vector<std::string>(entry.choices.begin(), entry.choices.end())));
    }

    void addCommand(const CommandEntry& command) {
        CLI::App* app = app_.add_subcommand(std::string(command.name), wrappedHelp(command.help));
        for (const OptionEntry& option : command.options)
            addOption(*app, option);
        for (const ArgumentEntry& argument : command.arguments) {
            const std::string name(argument.name);
            const std::string help = wrappedHelp(argument.help);
            CLI::Option* option = argument.isList ? app->add_option(name, list_, help)
                                                  : app->add_option(name, singles_[name], help);
            option->type_name("")->required(argument.isRequired);
        }
    }

    const CommandEntry* parsedCommand() const {
        const std::vector<CLI::App*> parsed = app_.get_subcommands();
        return parsed.empty() ? nullptr : findCommand(table_, parsed.front()->get_name());
    }

    // After CLI11 has missed something that is required.
    std::string whatIsNeeded() const {
        if (const CommandEntry* command = parsedCommand())
            return fmt::format("{} needs a {}", command->name, command->arguments.front().name);
        const std::vector<std::string> rest = app_.remaining();
        if (!rest.empty())
            return "there is no command or option " + rest.front();
        return "a command is needed: " + alternatives(table_.commands);
    }

    Answer wrongUsage(std::string message) const {
        std::erase(message, kWordMark);
        if (message.starts_with("The "))
            message[0] = 't';
        return {.status = ExitStatus::WrongUsage,
                .complaints = {fmt::format("{}; see {} --help", message, table_.program)}};
    }

    ParsedWords parsedWords() const {
        const CommandEntry& command = *parsedCommand();
        ParsedWords words{
            .command = std::string(command.name), .options = {}, .lists = {}, .arguments = {}};
        takeOptions(app_, table_.options, words);
        const CLI::App& app = *app_.get_subcommand(words.command);
        takeOptions(app, command.options, words);
        for (const ArgumentEntry& argument : command.arguments) {
            const std::string name(argument.name);
            if (!argument.isList && app.count(name) > 0)
                words.arguments.push_back(unmarked(singles_.at(name)));
        }
        for (const std::string& word : list_)
            words.arguments.push_back(unmarked(word));
        return words;
    }

    void takeOptions(const CLI::App& app, const std::vector<OptionEntry>& entries,
                     ParsedWords& words) const {
        for (const OptionEntry& entry : entries) {
            const std::string name(entry.name);
            if (app.count(name) == 0)
                continue;
            if (const auto list = lists_.find(name); list != lists_.end()) {
                for (const std::string& value : list->second)
                    words.lists[name].push_back(unmarked(value));
            }
            const auto value = values_.find(name);
            words.options.emplace(name, value == values_.end() ? "" : unmarked(value->second));
        }
    }

    const CommandTable& table_;
    CLI::App app_;
    std::map<std::string, std::string> values_;             // of options
    std::map<std::string, std::vector<std::string>> lists_; // of options given more than once
    std::map<std::string, std::string> singles_;            // of arguments
    std::vector<std::string> list_; // the argument that stands for many words
};

} // namespace

std::optional<std::string> ParsedWords::value(std::string_view option) const {
    const auto found = options.find(option);
    return found == options.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string> ParsedWords::values(std::string_view option) const {
    const auto found = lists.find(option);
    return found == lists.end() ? std::vector<std::string>() : found->second;
}

std::variant<ParsedWords, Answer> parseCommandLine(const CommandTable& table,
                                                   const std::vector<std::string>& arguments) {
    return Parser(table).parse(markedWords(table, arguments));
}

} // namespace refdoc
