#include "tools/refdoc/cli/CommandLine.hpp"

#include "tools/refdoc/cli/Help.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace refdoc {

namespace {

// No option starts like "-5", "-!" or "---", which an index may have as names.
bool looksLikeOption(std::string_view word) {
    const std::size_t dashes = word.starts_with("--") ? 2 : 1;
    if (!word.starts_with('-') || word.size() == dashes)
        return false;
    const char first = word[dashes];
    return std::string_view("-! \n").find(first) == std::string_view::npos &&
           (dashes == 2 || first < '0' || first > '9');
}

// "a PRODUCT", "an OUT"
std::string withArticle(std::string_view name) {
    const bool startsWithVowel =
        std::string_view("AEIOU").find(name.front()) != std::string_view::npos;
    return fmt::format("{} {}", startsWithVowel ? "an" : "a", name);
}

template <class Entries>
std::vector<std::string> namesOf(const Entries& entries) {
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (const auto& entry : entries)
        names.emplace_back(entry.name);
    return names;
}

class Sorter {
public:
    explicit Sorter(const CommandTable& table) : table_(table) {}

    void add(const std::string& word) {
        if (!line_.onlyArguments && word == "--")
            line_.onlyArguments = true;
        else if (line_.openOption)
            addValue(*std::exchange(line_.openOption, nullptr), word);
        else if (!line_.onlyArguments && looksLikeOption(word))
            addOption(word);
        else if (line_.command)
            line_.arguments.push_back(word);
        else
            addCommand(word);
    }

    CommandLine take() { return std::move(line_); }

private:
    void addCommand(const std::string& word) {
        const CommandEntry* command = findCommand(table_, word);
        if (!command)
            fail(unknownCommand(table_, word));
        else if (line_.onlyArguments)
            fail(fmt::format("the command {} must precede \"--\"", word));
        else
            line_.command = command;
    }

    void addOption(const std::string& word) {
        const bool isLong = word.starts_with("--");
        const std::size_t nameLength = std::min(isLong ? word.find('=') : 2, word.size());
        const std::string name = word.substr(0, nameLength);
        const OptionEntry* option = findOption(table_, line_.command, name);
        if (!option)
            fail(unknownOption(isLong && nameLength > 2 ? name : word));
        else if (nameLength < word.size())
            addValue(*option, word.substr(nameLength + (isLong ? 1 : 0)));
        else if (option->type == ValueType::None || option->isValueOptional)
            addValue(*option, "");
        else
            line_.openOption = option;
    }

    void addValue(const OptionEntry& option, const std::string& value) {
        if (line_.valueFault.empty())
            line_.valueFault = faultOf(option, value);
        line_.options.add(option.name, value);
    }

    static std::string faultOf(const OptionEntry& option, const std::string& value) {
        if (option.type == ValueType::Choice &&
            std::ranges::find(option.choices, value, &Choice::name) == option.choices.end())
            return fmt::format("{} must be {}, not \"{}\"", option.name,
                               alternatives(namesOf(option.choices)), value);
        // As a string, it would be the root of the file system in every path below it.
        if (option.type == ValueType::Folder && value.empty())
            return fmt::format("{} is empty; for the current folder, write \".\"", option.name);
        return {};
    }

    std::string unknownOption(const std::string& name) const {
        for (const CommandEntry& command : table_.commands) {
            if (findOption(table_, &command, name))
                return fmt::format("{} must follow the command {}", name, command.name);
        }
        std::vector<std::string> known;
        for (const OptionEntry* option : optionsFor(table_, line_.command))
            known.emplace_back(option->name);
        std::string question = didYouMean(name, known);
        std::erase(question, '"'); // options are not quoted
        return fmt::format("unknown option {}{}", name, question);
    }

    void fail(std::string fault) {
        if (line_.wordFault.empty())
            line_.wordFault = std::move(fault);
    }

    const CommandTable& table_;
    CommandLine line_;
};

// The complaint about arguments that are missing or too many; empty if there is none.
std::string argumentFault(const CommandLine& line) {
    const std::vector<ArgumentEntry>& entries = line.command->arguments;
    const std::size_t given = line.arguments.size();
    for (std::size_t at = 0; at < entries.size(); ++at) {
        const ArgumentEntry& entry = entries[at];
        if (entry.isRequired && at >= given)
            return fmt::format("{} needs {}", line.command->name, withArticle(entry.name));
        if (!entry.alternative.empty() && line.options.has(entry.alternative) == (at < given))
            return fmt::format("{} needs either {} or {}", line.command->name,
                               withArticle(entry.name), entry.alternative);
    }
    const bool endsWithList = !entries.empty() && entries.back().isList;
    if (given > entries.size() && !endsWithList)
        return fmt::format("unexpected argument \"{}\"", line.arguments[entries.size()]);
    return {};
}

// The complaint about two options of one group; empty if there is none.
std::string groupFault(const CommandTable& table, const CommandLine& line) {
    std::map<std::string_view, std::string_view> givenByGroup;
    for (const OptionEntry* option : optionsFor(table, line.command)) {
        if (option->group.empty() || !line.options.has(option->name))
            continue;
        const auto [given, isFirst] = givenByGroup.emplace(option->group, option->name);
        if (!isFirst)
            return fmt::format("{} and {} cannot be combined", given->second, option->name);
    }
    return {};
}

std::string usageFault(const CommandTable& table, const CommandLine& line) {
    if (!line.wordFault.empty())
        return line.wordFault;
    if (!line.command)
        return "a command is needed: " + alternatives(namesOf(table.commands));
    const std::string fault = groupFault(table, line);
    return fault.empty() ? argumentFault(line) : fault;
}

} // namespace

void OptionValues::add(std::string_view option, std::string value) {
    values_[std::string(option)].push_back(std::move(value));
}

std::optional<std::string> OptionValues::value(std::string_view option) const {
    const auto found = values_.find(option);
    return found == values_.end() ? std::nullopt : std::optional(found->second.back());
}

std::vector<std::string> OptionValues::values(std::string_view option) const {
    const auto found = values_.find(option);
    return found == values_.end() ? std::vector<std::string>() : found->second;
}

bool readsRoot(const CommandLine& line) {
    const RootUse use = line.command ? line.command->rootUse : RootUse::Always;
    return use == RootUse::Always || (use == RootUse::WithoutArguments && line.arguments.empty());
}

CommandLine sortWords(const CommandTable& table, const std::vector<std::string>& words) {
    Sorter sorter(table);
    for (const std::string& word : words)
        sorter.add(word);
    return sorter.take();
}

std::string unknownCommand(const CommandTable& table, const std::string& word) {
    return fmt::format("unknown command \"{}\"{}", word, didYouMean(word, namesOf(table.commands)));
}

Answer wrongUsage(const CommandTable& table, const std::string& fault) {
    return {.status = ExitStatus::WrongUsage,
            .complaints = {fmt::format("{}; see {} --help", fault, table.program)}};
}

std::variant<CommandLine, Answer> parseCommandLine(const CommandTable& table,
                                                   const std::vector<std::string>& words) {
    CommandLine line = sortWords(table, words);
    if (line.openOption && line.valueFault.empty())
        line.valueFault = fmt::format("{} needs a value", line.openOption->name);
    if (!line.valueFault.empty())
        return wrongUsage(table, line.valueFault);
    // Checked before other faults, so that an incomplete command line can ask for help.
    if (line.options.has("--version"))
        return Answer{.output = fmt::format("{} {}\n", table.program, REFDOC_VERSION)};
    if (line.options.has("--help"))
        return Answer{.output = helpText(table, line.command)};
    if (const std::string fault = usageFault(table, line); !fault.empty())
        return wrongUsage(table, fault);
    return line;
}

} // namespace refdoc
