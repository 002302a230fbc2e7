#include "tools/refdoc/complete/Completion.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/cli/TypedWords.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <variant>

namespace refdoc {

using fl::i18n::to_string;
using fl::i18n::to_ustring;
using reference::docparser::DocResourceParser;

namespace {

using Candidates = std::map<std::string, std::string>; // what each is, by the word

Candidates withoutRemarks(const std::vector<std::u16string>& names) {
    Candidates candidates;
    for (const std::u16string& name : names)
        candidates.emplace(to_string(name), "");
    return candidates;
}

Candidates optionNames(const CommandTable& table, const CommandEntry* command) {
    Candidates candidates;
    for (const OptionEntry& option : table.options)
        candidates.emplace(option.name, option.help);
    if (command) {
        for (const OptionEntry& option : command->options)
            candidates.emplace(option.name, option.help);
    }
    return candidates;
}

Candidates commandNames(const CommandTable& table) {
    Candidates candidates;
    for (const CommandEntry& command : table.commands)
        candidates.emplace(command.name, command.help);
    return candidates;
}

Candidates supportedLanguages() {
    return withoutRemarks(platform::hostServices()->supportedDocLanguages());
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

// Of a list with commas the last part is being typed; what stands before it stays.
Candidates listsWith(const std::string& word, const Candidates& parts) {
    const std::string before = word.substr(0, word.rfind(',') + 1); // npos + 1 is 0
    Candidates candidates;
    for (const auto& [part, remark] : parts) {
        if ((',' + before).find(',' + part + ',') == std::string_view::npos)
            candidates.emplace(before + part, remark);
    }
    return candidates;
}

Candidates valuesOf(const TypedWords& typed, const OptionEntry& option) {
    Candidates choices;
    switch (option.kind) {
    case ValueKind::Choice:
        for (const std::string_view choice : option.choices)
            choices.emplace(choice, "");
        return choices;
    case ValueKind::Language: return supportedLanguages();
    case ValueKind::Languages: return listsWith(typed.word, supportedLanguages());
    case ValueKind::Sections: return listsWith(typed.word, sectionKeys());
    case ValueKind::LookupName: return lookupNames();
    case ValueKind::Rule:
        for (const check::Rule* rule : check::rules())
            choices.emplace(rule->name, rule->summary);
        return choices;
    default: return {};
    }
}

Candidates argumentsOf(const TypedWords& typed) {
    const std::vector<ArgumentEntry>& entries = typed.command->arguments;
    if (entries.empty() || (typed.arguments.size() >= entries.size() && !entries.back().isList))
        return {};
    switch (entries[std::min(typed.arguments.size(), entries.size() - 1)].kind) {
    case ValueKind::Product: return withoutRemarks(productNames());
    case ValueKind::Href: return hrefsOf(to_ustring(typed.arguments.front()));
    case ValueKind::LookupName: return lookupNames();
    default: return {};
    }
}

Candidates candidatesFor(const CommandTable& table, const TypedWords& typed) {
    if (typed.option)
        return valuesOf(typed, *typed.option);
    if (!typed.isAfterDashes && typed.word.starts_with('-'))
        return optionNames(table, typed.command);
    return typed.command ? argumentsOf(typed) : commandNames(table);
}

// Brings the library to the state that the options so far ask for.
void applyTypedOptions(const TypedWords& typed) {
    std::vector<std::string> line = typed.options;
    if (typed.option && !line.empty() && line.back() == typed.option->name)
        line.pop_back();           // its value is what is being typed
    line.emplace_back("products"); // any command without arguments
    const std::variant<Options, Answer> understood = readCommandLine(line);
    applyOptions(std::holds_alternative<Options>(understood) ? std::get<Options>(understood)
                                                             : Options());
}

// A word that would not reach the shell as it is is left out.
std::string linesOf(const Candidates& candidates, std::string_view start) {
    std::string lines;
    for (auto found = candidates.lower_bound(std::string(start));
         found != candidates.end() && found->first.starts_with(start); ++found) {
        const auto& [word, remark] = *found;
        if (!word.empty() && visibleLine(word) == word)
            lines += word + (remark.empty() ? "" : '\t' + visibleLine(remark)) + '\n';
    }
    return lines;
}

} // namespace

std::string completionsOf(const std::vector<std::string>& words) {
    try {
        const CommandTable& table = commandTable();
        const TypedWords typed = sortWords(table, words);
        applyTypedOptions(typed);
        return linesOf(candidatesFor(table, typed), typed.word);
    } catch (const std::exception&) {
        // A malformed manifest, say: what is typed will meet it again and then be told.
    } catch (const foundation::core::except::IException&) {
        // No such product: it has no links either.
    }
    return {};
}

} // namespace refdoc
