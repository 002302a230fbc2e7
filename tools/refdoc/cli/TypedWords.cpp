#include "tools/refdoc/cli/TypedWords.hpp"

#include "platform/terminal/ProgramText.hpp"

#include <optional>
#include <utility>

namespace refdoc {

namespace {

// The shells hand on what was typed, before they put the home folder in the place of "~".
std::string withHomeFolder(const std::string& folder) {
    const std::optional<std::string> home = platform::environmentVariable("HOME");
    if (!home || (folder != "~" && !folder.starts_with("~/")))
        return folder;
    return *home + folder.substr(1);
}

class Sorter {
public:
    explicit Sorter(const CommandTable& table) : table_(table) {}

    // A word that is complete.
    void add(const std::string& word) {
        if (typed_.option) {
            const bool isFolder = typed_.option->kind == ValueKind::Folder;
            typed_.options.push_back(isFolder ? withHomeFolder(word) : word);
            typed_.option = nullptr;
        } else if (!typed_.isAfterDashes && word == "--") {
            typed_.isAfterDashes = true;
        } else if (!typed_.isAfterDashes && word.starts_with('-') && word.size() > 1) {
            addOption(word);
        } else if (!typed_.command) {
            typed_.command = findCommand(table_, word);
        } else {
            typed_.arguments.push_back(word);
        }
    }

    TypedWords finish(const std::string& word) {
        typed_.word = word;
        const std::size_t equals = word.find('=');
        if (!typed_.option && !typed_.isAfterDashes && word.starts_with("--") &&
            equals != std::string_view::npos) {
            typed_.option = find(word.substr(0, equals));
            typed_.word = word.substr(equals + 1);
        }
        return std::move(typed_);
    }

private:
    const OptionEntry* find(std::string_view name) const {
        return findOption(table_, typed_.command, name);
    }

    void addOption(const std::string& word) {
        const OptionEntry* option = find(word.substr(0, word.find('=')));
        if (!option)
            return;
        typed_.options.push_back(word);
        if (option->kind != ValueKind::None && !option->isValueOptional &&
            word.find('=') == std::string_view::npos)
            typed_.option = option;
    }

    const CommandTable& table_;
    TypedWords typed_;
};

} // namespace

TypedWords sortWords(const CommandTable& table, const std::vector<std::string>& words) {
    Sorter sorter(table);
    for (std::size_t at = 0; at + 1 < words.size(); ++at)
        sorter.add(words[at]);
    return sorter.finish(words.empty() ? std::string() : words.back());
}

} // namespace refdoc
