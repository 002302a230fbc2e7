#include "tools/refdoc/complete/Completion.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/terminal/ProgramText.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Locations.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>
#include <map>
#include <optional>

namespace refdoc {

using fl::i18n::to_string;
using fl::i18n::to_ustring;
using reference::docparser::DocResourceParser;

namespace {

using Candidates = std::map<std::string, std::string>; // descriptions by word

// The scripts pass words before the shell expands "~".
std::string withHomeFolder(const std::string& word) {
    const std::optional<std::string> home = platform::environmentVariable("HOME");
    return home && (word == "~" || word.starts_with("~/")) ? *home + word.substr(1) : word;
}

Candidates withoutDescriptions(const std::vector<std::u16string>& names) {
    Candidates candidates;
    for (const std::u16string& name : names)
        candidates.emplace(to_string(name), "");
    return candidates;
}

Candidates optionNames(const CommandTable& table, const CommandEntry* command) {
    Candidates candidates;
    for (const OptionEntry* option : optionsFor(table, command))
        candidates.emplace(option->name, option->help);
    return candidates;
}

Candidates commandNames(const CommandTable& table) {
    Candidates candidates;
    for (const CommandEntry& command : table.commands)
        candidates.emplace(command.name, command.help);
    return candidates;
}

Candidates supportedLanguages() {
    return withoutDescriptions(platform::hostServices()->supportedDocLanguages());
}

// Calls use(key, resource) for each section of the lookup index.
template <class Use>
void forEachSection(const Use& use) {
    const auto results = DocResourceParser::getResourceLookupFiles();
    for (const auto* sections : {&results.installed, &results.notInstalled}) {
        for (const auto& [key, resource] : *sections)
            use(key, resource);
    }
}

Candidates sectionKeys() {
    Candidates candidates;
    forEachSection([&](const std::u16string& key, const auto& resource) {
        candidates.emplace(to_string(key), to_string(resource.header.getProductName()));
    });
    return candidates;
}

Candidates lookupNames() {
    Candidates candidates;
    forEachSection([&](const std::u16string&, const auto& resource) {
        for (const auto& [name, entries] : resource.items) {
            if (!entries.empty())
                candidates.emplace(to_string(name), to_string(entries.front().getRefPurpose()));
        }
    });
    return candidates;
}

Candidates hrefsOf(const std::u16string& product) {
    Candidates candidates;
    for (const auto& [key, resource] : DocResourceParser::getResourceFile(product)) {
        for (const auto& [href, items] : resource.items) {
            if (!items.empty())
                candidates.emplace(to_string(href), to_string(items.front().getRefPurpose()));
        }
    }
    return candidates;
}

// The list with one more item in place of the unfinished last one; items are not repeated.
Candidates extendedLists(const std::string& list, const Candidates& items) {
    const std::string before = list.substr(0, list.rfind(',') + 1); // npos + 1 is 0
    Candidates candidates;
    for (const auto& [item, description] : items) {
        if ((',' + before).find(',' + item + ',') == std::string::npos)
            candidates.emplace(before + item, description);
    }
    return candidates;
}

// The values that fit the type, whatever they start with. Paths have none: the shell completes
// them.
Candidates valuesOf(const CommandTable& table, ValueType type, const std::vector<Choice>& choices,
                    const std::string& typed, const CommandLine& line) {
    Candidates candidates;
    switch (type) {
    case ValueType::Choice:
    case ValueType::Name:
        for (const auto& [name, help] : choices)
            candidates.emplace(name, help);
        return candidates;
    case ValueType::Language: return supportedLanguages();
    case ValueType::Languages:
        candidates = extendedLists(typed, supportedLanguages());
        for (const auto& [name, help] : choices) // in place of a list
            candidates.emplace(name, help);
        return candidates;
    case ValueType::Sections: return extendedLists(typed, sectionKeys());
    case ValueType::Product: return withoutDescriptions(productNames());
    case ValueType::Href:
        return line.arguments.empty() ? candidates : hrefsOf(to_ustring(line.arguments.front()));
    case ValueType::LookupName: return lookupNames();
    case ValueType::Command: return commandNames(table);
    default: return candidates;
    }
}

// The argument that the next word would be; null if the command takes no more.
const ArgumentEntry* nextArgument(const CommandLine& line) {
    const std::vector<ArgumentEntry>& entries = line.command->arguments;
    if (line.arguments.size() < entries.size())
        return &entries[line.arguments.size()];
    return !entries.empty() && entries.back().isList ? &entries.back() : nullptr;
}

// Words with control characters are left out, because a line cannot carry them unchanged.
std::string wordLines(const Candidates& candidates, const std::string& start,
                      const std::string& prefix = {}) {
    std::string lines = "words\n";
    for (auto found = candidates.lower_bound(start);
         found != candidates.end() && found->first.starts_with(start); ++found) {
        const auto& [word, description] = *found;
        if (!word.empty() && visibleLine(word) == word)
            lines +=
                prefix + word + (description.empty() ? "" : '\t' + visibleLine(description)) + '\n';
    }
    return lines;
}

std::string valueAnswer(const CommandTable& table, ValueType type,
                        const std::vector<Choice>& choices, const CommandLine& line,
                        const std::string& typed, const std::string& prefix = {}) {
    switch (type) {
    case ValueType::Folder: return "folder\n";
    case ValueType::Path: return "file\n";
    default: return wordLines(valuesOf(table, type, choices, typed, line), typed, prefix);
    }
}

std::string optionAnswer(const CommandTable& table, const CommandLine& line,
                         const std::string& word) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos)
        return wordLines(optionNames(table, line.command), word);
    const OptionEntry* option = findOption(table, line.command, word.substr(0, equals));
    return option ? valueAnswer(table, option->type, option->choices, line, word.substr(equals + 1),
                                word.substr(0, equals + 1))
                  : std::string();
}

std::string answerFor(const CommandTable& table, const CommandLine& line, const std::string& word) {
    if (line.openOption)
        return valueAnswer(table, line.openOption->type, line.openOption->choices, line, word);
    if (!line.onlyArguments && word.starts_with('-'))
        return optionAnswer(table, line, word);
    if (!line.command)
        return line.onlyArguments ? std::string() : wordLines(commandNames(table), word);
    const ArgumentEntry* argument = nextArgument(line);
    return argument ? valueAnswer(table, argument->type, {}, line, word) : std::string();
}

} // namespace

std::string completionsOf(const CommandTable& table, std::vector<std::string> words) {
    try {
        const std::string word = words.empty() ? std::string() : words.back();
        if (!words.empty())
            words.pop_back();
        std::ranges::transform(words, words.begin(), withHomeFolder);
        const CommandLine line = sortWords(table, words);
        applyOptions(resolveOptions(line));
        return answerFor(table, line, word);
    } catch (const std::exception&) {
        // A malformed manifest, for example: running the command line will report it.
    } catch (const foundation::core::except::IException&) {
        // The product does not exist, so it has no links either.
    }
    return {};
}

} // namespace refdoc
