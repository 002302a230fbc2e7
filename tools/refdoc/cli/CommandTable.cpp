#include "tools/refdoc/cli/CommandTable.hpp"

#include <algorithm>
#include <cctype>

namespace refdoc {

const CommandEntry* findCommand(const CommandTable& table, std::string_view name) {
    const auto found = std::ranges::find(table.commands, name, &CommandEntry::name);
    return found == table.commands.end() ? nullptr : &*found;
}

std::vector<const OptionEntry*> optionsFor(const CommandTable& table, const CommandEntry* command) {
    std::vector<const OptionEntry*> options;
    for (const OptionEntry& option : table.options)
        options.push_back(&option);
    if (command) {
        for (const OptionEntry& option : command->options)
            options.push_back(&option);
    }
    return options;
}

const OptionEntry* findOption(const CommandTable& table, const CommandEntry* command,
                              std::string_view name) {
    for (const OptionEntry* option : optionsFor(table, command)) {
        if (option->name == name || (!name.empty() && option->shortName == name))
            return option;
    }
    return nullptr;
}

std::string sentenceOf(std::string_view text) {
    std::string sentence(text);
    if (!sentence.empty())
        sentence.front() =
            static_cast<char>(std::toupper(static_cast<unsigned char>(sentence.front())));
    if (!sentence.ends_with('.'))
        sentence += '.';
    return sentence;
}

std::string synopsisOf(const ArgumentEntry& argument) {
    const std::string name = std::string(argument.name) + (argument.isList ? "..." : "");
    return argument.isRequired ? name : '[' + name + ']';
}

std::string synopsisOf(const CommandEntry& command) {
    std::string synopsis(command.name);
    for (const ArgumentEntry& argument : command.arguments)
        synopsis += ' ' + synopsisOf(argument);
    return synopsis;
}

} // namespace refdoc
