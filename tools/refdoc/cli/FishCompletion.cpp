#include "tools/refdoc/cli/CompletionScripts.hpp"

#include <fmt/format.h>

#include <string_view>
#include <vector>

namespace refdoc {

namespace {

std::string quoted(std::string_view text) {
    std::string result = "'";
    for (const char letter : text) {
        if (letter == '\'' || letter == '\\')
            result += '\\';
        result += letter;
    }
    return result + '\'';
}

std::string valueOf(const CommandTable& table, const OptionEntry& option) {
    if (option.kind == ValueKind::None)
        return "";
    if (option.kind == ValueKind::Folder)
        return " -x -a '(__fish_complete_directories)'";
    if (option.kind == ValueKind::File)
        return " -r -F";
    if (option.choices.empty())
        return fmt::format(" -x -a '(__{}_ask)'", table.program);
    return fmt::format(" -x -a '{}'", fmt::join(option.choices, " "));
}

// \param condition  when the options are offered, with a space before it; empty: always
std::string linesOf(const CommandTable& table, const std::vector<OptionEntry>& options,
                    std::string_view condition) {
    std::string lines;
    for (const OptionEntry& option : options) {
        lines += fmt::format("complete -c {}{}", table.program, condition);
        if (!option.shortName.empty())
            lines += fmt::format(" -s {}", option.shortName.substr(1));
        lines += fmt::format(" -l {} -d {}{}\n", option.name.substr(2), quoted(option.help),
                             valueOf(table, option));
    }
    return lines;
}

} // namespace

std::string fishCompletion(const CommandTable& table) {
    std::string script =
        fmt::format("# fish completion of {0}; generated, do not edit\n\n"
                    "# What the program answers: lines of a word, a tab and what it is.\n"
                    "function __{0}_ask\n"
                    "    set -l typed (commandline -opc)\n"
                    "    set -l word (string unescape -- (commandline -ct))\n"
                    "    $typed[1] complete $typed[2..-1] \"$word\" 2>/dev/null\n"
                    "end\n\n"
                    "complete -c {0} -f -a '(__{0}_ask)'\n",
                    table.program);
    script += linesOf(table, table.options, "");
    for (const CommandEntry& command : table.commands)
        script += linesOf(table, command.options,
                          fmt::format(" -n '__fish_seen_subcommand_from {}'", command.name));
    return script;
}

} // namespace refdoc
