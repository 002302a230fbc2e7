#include "tools/refdoc/cli/Help.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/Page.hpp"

#include <fmt/format.h>

#include <limits>

namespace refdoc {

namespace {

using fl::i18n::to_ustring;

constexpr PageSetup kSetup{
    .textWidth = 80, .lineWidth = std::numeric_limits<std::size_t>::max(), .color = false};
constexpr std::size_t kIndent = 2;

class HelpPage {
public:
    void paragraph(std::string_view text) {
        if (text.empty())
            return;
        if (!page_.isEmpty())
            page_.emptyLine();
        page_.text(0, to_ustring(text));
    }

    void list(std::string_view title, const Table& table) {
        if (table.isEmpty())
            return;
        page_.heading(0, to_ustring(title));
        page_.table(kIndent, table);
    }

    std::string take() { return page_.take(); }

private:
    Page page_{kSetup};
};

void addRow(Table& table, std::string_view term, std::string_view text) {
    table.addRow({{to_ustring(term)}, {to_ustring(text)}});
}

Table optionTable(const std::vector<OptionEntry>& options) {
    Table table;
    for (const OptionEntry& option : options) {
        std::string term = fmt::format("{}{}{}", option.shortName,
                                       option.shortName.empty() ? "" : ", ", option.name);
        if (!option.placeholder.empty())
            term += option.isValueOptional ? fmt::format("[={}]", option.placeholder)
                                           : fmt::format(" {}", option.placeholder);
        addRow(table, term, option.help);
    }
    return table;
}

// The exit statuses of the program, with the command's own meaning of 1.
Table statusTable(const CommandTable& table, const CommandEntry& command) {
    Table statuses;
    for (const auto& [status, meaning] : table.exitStatuses) {
        if (status != "1")
            addRow(statuses, status, meaning);
        else if (!command.negative.empty())
            addRow(statuses, status, command.negative);
    }
    return statuses;
}

void addExamples(Table& table, const CommandEntry& command) {
    for (const Remark& example : command.examples)
        table.addRow({{to_ustring(example.subject)}});
}

std::string commandHelp(const CommandTable& table, const CommandEntry& command) {
    HelpPage page;
    page.paragraph(sentenceOf(command.help));
    page.paragraph(fmt::format("Usage: {} {} [OPTIONS]", table.program, synopsisOf(command)));
    page.paragraph(command.description);
    Table arguments;
    for (const ArgumentEntry& argument : command.arguments)
        addRow(arguments, argument.name, argument.help);
    page.list("Arguments:", arguments);
    page.list("Options:", optionTable(command.options));
    page.list("Exit status:", statusTable(table, command));
    Table examples;
    addExamples(examples, command);
    page.list("Examples:", examples);
    page.paragraph(fmt::format("\"{} --help\" lists the options of all commands.", table.program));
    return page.take();
}

std::string programHelp(const CommandTable& table) {
    HelpPage page;
    page.paragraph(sentenceOf(table.summary));
    page.paragraph(fmt::format("Usage: {} [OPTIONS] COMMAND [ARGUMENTS]", table.program));
    Table commands;
    for (const CommandEntry& command : table.commands)
        addRow(commands, synopsisOf(command), command.help);
    page.list("Commands:", commands);
    page.list("Options:", optionTable(table.options));
    page.paragraph(fmt::format("Options may precede or follow the command; \"--\" ends them. "
                               "\"{} COMMAND --help\" lists the options of one command.",
                               table.program));
    Table statuses;
    for (const Remark& status : table.exitStatuses)
        addRow(statuses, status.subject, status.text);
    page.list("Exit status:", statuses);
    Table examples;
    for (const CommandEntry& command : table.commands)
        addExamples(examples, command);
    page.list("Examples:", examples);
    return page.take();
}

} // namespace

std::string helpText(const CommandTable& table, const CommandEntry* command) {
    return command ? commandHelp(table, *command) : programHelp(table);
}

} // namespace refdoc
