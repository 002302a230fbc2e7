#include "tools/refdoc/cli/ManPage.hpp"

#include "tools/refdoc/terminal/TextLayout.hpp"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <fmt/format.h>

#include <iterator>
#include <utility>
#include <vector>

namespace refdoc {

namespace {

constexpr std::size_t kSourceWidth = 76; // some formatters warn about lines over 80

// The text as roff prints it: a bare hyphen could become a dash, and a backslash starts an escape.
std::string escaped(std::string_view text) {
    std::string result = boost::algorithm::replace_all_copy(std::string(text), "\\", "\\e");
    boost::algorithm::replace_all(result, "-", "\\-");
    return result;
}

// As the argument of a macro.
std::string quotedArgument(std::string_view text) {
    return '"' + boost::algorithm::replace_all_copy(escaped(text), "\"", "\\(dq") + '"';
}

std::string bold(std::string_view text) {
    return "\\fB" + escaped(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + escaped(text) + "\\fR";
}

class Roff {
public:
    void macro(std::string_view line) { fmt::format_to(std::back_inserter(page_), "{}\n", line); }

    void section(std::string_view title) { macro(fmt::format(".SH {}", quotedArgument(title))); }

    void text(std::string_view text) {
        for (const std::string& line : wrapText(escaped(text), kSourceWidth))
            // roff reads a line that starts with a period or an apostrophe as a macro.
            macro((line.starts_with('.') || line.starts_with('\'') ? "\\&" : "") + line);
    }

    // A term and, indented below it, its explanation.
    void item(std::string_view term, std::string_view meaning) {
        macro(".TP");
        macro(term);
        text(meaning);
    }

    std::string take() { return std::move(page_); }

private:
    std::string page_;
};

void addOptions(Roff& roff, const std::vector<OptionEntry>& options) {
    for (const OptionEntry& option : options) {
        std::string term = bold(option.name);
        if (!option.shortName.empty())
            term.insert(0, bold(option.shortName) + ", ");
        if (option.isValueOptional)
            term += "[=" + italic(option.placeholder) + ']';
        else if (!option.placeholder.empty())
            term += ' ' + italic(option.placeholder);
        roff.item(term, sentenceOf(option.help));
    }
}

void addSynopsis(Roff& roff, const CommandTable& table) {
    roff.section("SYNOPSIS");
    for (const CommandEntry& command : table.commands) {
        if (&command != &table.commands.front())
            roff.macro(".br");
        std::string line =
            fmt::format(R"({} [\fIOPTIONS\fR] {})", bold(table.program), bold(command.name));
        for (const ArgumentEntry& entry : command.arguments)
            line += ' ' + boost::algorithm::replace_all_copy(synopsisOf(entry), entry.name,
                                                             italic(entry.name));
        roff.macro(line);
    }
}

void addCommands(Roff& roff, const CommandTable& table) {
    roff.section("COMMANDS");
    for (const CommandEntry& command : table.commands) {
        roff.item(bold(synopsisOf(command)),
                  sentenceOf(command.help) + ' ' + std::string(command.description));
        if (command.arguments.empty() && command.options.empty())
            continue;
        roff.macro(".RS");
        for (const ArgumentEntry& entry : command.arguments)
            roff.item(italic(entry.name), sentenceOf(entry.help));
        addOptions(roff, command.options);
        roff.macro(".RE");
    }
}

void addRemarks(Roff& roff, std::string_view title, const std::vector<Remark>& remarks) {
    if (remarks.empty())
        return;
    roff.section(title);
    for (const Remark& remark : remarks)
        roff.item(bold(remark.subject), remark.text);
}

void addExamples(Roff& roff, const std::vector<CommandEntry>& commands) {
    roff.section("EXAMPLES");
    bool isFirst = true;
    for (const CommandEntry& command : commands) {
        for (const Remark& example : command.examples) {
            if (!std::exchange(isFirst, false))
                roff.macro(".PP");
            roff.text(example.text);
            roff.macro(".PP\n.RS 4\n.nf");
            roff.macro(escaped(example.subject));
            roff.macro(".fi\n.RE");
        }
    }
}

// "less(1)" with its name in bold.
void addSeeAlso(Roff& roff, const std::vector<std::string_view>& pages) {
    if (pages.empty())
        return;
    roff.section("SEE ALSO");
    for (const std::string_view& page : pages) {
        const std::size_t bracket = page.find('(');
        roff.macro(fmt::format(".BR {} {}{}", escaped(page.substr(0, bracket)),
                               page.substr(bracket), &page == &pages.back() ? "" : ","));
    }
}

} // namespace

std::string manPage(const CommandTable& table, std::string_view version, std::string_view date) {
    Roff roff;
    roff.macro(fmt::format(R"(.TH {} 1 "{}" {} "User Commands")",
                           boost::algorithm::to_upper_copy(std::string(table.program)), date,
                           quotedArgument(fmt::format("{} {}", table.program, version))));
    roff.section("NAME");
    roff.macro(fmt::format("{} \\- {}", escaped(table.program), escaped(table.summary)));
    addSynopsis(roff, table);
    roff.section("DESCRIPTION");
    for (const std::string_view& paragraph : table.description) {
        if (&paragraph != &table.description.front())
            roff.macro(".PP");
        roff.text(paragraph);
    }
    addCommands(roff, table);
    roff.section("OPTIONS");
    addOptions(roff, table.options);
    addRemarks(roff, "EXIT STATUS", table.exitStatuses);
    addRemarks(roff, "ENVIRONMENT", table.environment);
    addRemarks(roff, "FILES", table.files);
    addExamples(roff, table.commands);
    addSeeAlso(roff, table.seeAlso);
    return roff.take();
}

} // namespace refdoc
