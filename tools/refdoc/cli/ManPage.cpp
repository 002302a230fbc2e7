#include "tools/refdoc/cli/ManPage.hpp"

#include "tools/refdoc/terminal/TextLayout.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <utility>
#include <vector>

namespace refdoc {

namespace {

constexpr std::size_t kSourceWidth = 76; // some formatters complain of lines over 80

// The text as roff prints it: a bare hyphen could become another dash, and a backslash is its own.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '-')
            result += "\\-";
        else if (letter == '\\')
            result += "\\e";
        else
            result += letter;
    }
    return result;
}

// As the argument of a macro.
std::string argument(std::string_view text) {
    std::string result = "\"";
    for (const char letter : escaped(text))
        result += letter == '"' ? "\\(dq" : std::string(1, letter);
    return result + '"';
}

std::string upperCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char letter) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    });
    return result;
}

class Roff {
public:
    void macro(std::string_view line) { fmt::format_to(std::back_inserter(page_), "{}\n", line); }

    void section(std::string_view title) { macro(fmt::format(".SH {}", argument(title))); }

    void text(std::string_view text) {
        for (const std::string& line : wrapText(escaped(text), kSourceWidth))
            // A line that starts so would be taken for a macro.
            macro((line.starts_with('.') || line.starts_with('\'') ? "\\&" : "") + line);
    }

    // A term and, below it and further in, what it means.
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
        std::string term = "\\fB" + escaped(option.name) + "\\fR";
        if (!option.shortName.empty())
            term.insert(0, "\\fB" + escaped(option.shortName) + "\\fR, ");
        if (!option.placeholder.empty())
            term += " \\fI" + escaped(option.placeholder) + "\\fR";
        roff.item(term, sentenceOf(option.help));
    }
}

void addSynopsis(Roff& roff, const CommandTable& table) {
    roff.section("SYNOPSIS");
    for (const CommandEntry& command : table.commands) {
        if (&command != &table.commands.front())
            roff.macro(".br");
        std::string line = fmt::format(R"(\fB{}\fR [\fIOPTIONS\fR] \fB{}\fR)",
                                       escaped(table.program), escaped(command.name));
        for (const ArgumentEntry& entry : command.arguments) {
            const std::string word =
                "\\fI" + escaped(entry.name) + "\\fR" + (entry.isList ? "..." : "");
            line += entry.isRequired ? " " + word : " [" + word + "]";
        }
        roff.macro(line);
    }
}

void addCommands(Roff& roff, const CommandTable& table) {
    roff.section("COMMANDS");
    for (const CommandEntry& command : table.commands) {
        roff.item("\\fB" + escaped(synopsisOf(command)) + "\\fR",
                  sentenceOf(command.help) + ' ' + std::string(command.description));
        if (command.arguments.empty() && command.options.empty())
            continue;
        roff.macro(".RS");
        for (const ArgumentEntry& entry : command.arguments)
            roff.item("\\fI" + escaped(entry.name) + "\\fR", sentenceOf(entry.help));
        addOptions(roff, command.options);
        roff.macro(".RE");
    }
}

void addRemarks(Roff& roff, std::string_view title, const std::vector<Remark>& remarks) {
    if (remarks.empty())
        return;
    roff.section(title);
    for (const Remark& remark : remarks)
        roff.item("\\fB" + escaped(remark.subject) + "\\fR", remark.text);
}

void addExamples(Roff& roff, const std::vector<Remark>& examples) {
    roff.section("EXAMPLES");
    for (const Remark& example : examples) {
        if (&example != &examples.front())
            roff.macro(".PP");
        roff.text(example.text);
        roff.macro(".PP\n.RS 4\n.nf");
        roff.macro(escaped(example.subject));
        roff.macro(".fi\n.RE");
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
    roff.macro(fmt::format(R"(.TH {} 1 "{}" {} "User Commands")", upperCase(table.program), date,
                           argument(fmt::format("{} {}", table.program, version))));
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
    addExamples(roff, table.examples);
    addSeeAlso(roff, table.seeAlso);
    return roff.take();
}

} // namespace refdoc
