#include "tools/refdoc/cli/CompletionScripts.hpp"

#include <fmt/format.h>

#include <string_view>
#include <vector>

namespace refdoc {

namespace {

constexpr std::string_view kAsk = R"(
# Offers what the program answers: lines of a word, a tab and what it is.
_{0}_ask() {{
    local -a lines
    lines=("${{(@f)$(${{typed[1]}} complete "${{(@)typed[2,-1]}}" 2>/dev/null)}}")
    lines=("${{(@)lines:#}}")
    lines=("${{(@)lines//\\/\\\\}}")
    lines=("${{(@)lines//:/\\:}}")
    lines=("${{(@)lines/$'\t'/:}}")
    _describe -V word lines
}}
)";

// The text in a rule of _arguments, which stands between single quotes.
std::string inRule(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '\'')
            result += "'\\''";
        else if (letter == '[' || letter == ']' || letter == ':' || letter == '\\')
            result += std::string("\\") + letter;
        else
            result += letter;
    }
    return result;
}

std::string actionOf(const CommandTable& table, const OptionEntry& option) {
    if (option.kind == ValueKind::Folder)
        return "_files -/";
    if (option.kind == ValueKind::File)
        return "_files";
    if (option.choices.empty())
        return fmt::format("_{}_ask", table.program);
    return fmt::format("({})", fmt::join(option.choices, " "));
}

std::string ruleOf(const CommandTable& table, const OptionEntry& option) {
    const std::string help = inRule(option.help);
    if (!option.shortName.empty())
        return fmt::format("'({0} {1})'{{{0},{1}}}'[{2}]'", option.shortName, option.name, help);
    const std::string excluded =
        option.excludes.empty() ? "" : fmt::format("({})", option.excludes);
    if (option.kind == ValueKind::None)
        return fmt::format("'{}{}[{}]'", excluded, option.name, help);
    // "*": it may be given again; "=-" and "::": a value follows after "=" only, or none.
    return fmt::format("'{}{}{}{}[{}]{}:{}:{}'", option.isList ? "*" : "", excluded, option.name,
                       option.isValueOptional ? "=-" : "=", help, option.isValueOptional ? ":" : "",
                       inRule(option.placeholder), actionOf(table, option));
}

std::string rulesOf(const CommandTable& table, const std::vector<OptionEntry>& options) {
    std::string rules;
    for (const OptionEntry& option : options)
        rules += fmt::format("        {}\n", ruleOf(table, option));
    return rules;
}

// The options of single commands join once the command's name has been typed.
std::string commandRules(const CommandTable& table) {
    std::string script;
    for (const CommandEntry& command : table.commands) {
        if (!command.options.empty())
            script += fmt::format("    (( ${{typed[(I){}]}} )) && rules+=(\n{}    )\n",
                                  command.name, rulesOf(table, command.options));
    }
    return script;
}

} // namespace

std::string zshCompletion(const CommandTable& table) {
    return fmt::format("#compdef {0}\n"
                       "# zsh completion of {0}; generated, do not edit\n"
                       "{1}\n"
                       "_{0}() {{\n"
                       "    local -a typed rules\n"
                       "    typed=(\"${{(@Q)words[1,CURRENT-1]}}\" \"${{(Q)PREFIX}}\")\n"
                       "    rules=(\n"
                       "{2}"
                       "    )\n"
                       "{3}"
                       "    _arguments -S \"${{(@)rules}}\" '*:word:_{0}_ask'\n"
                       "}}\n\n"
                       "_{0} \"$@\"\n",
                       table.program, fmt::format(fmt::runtime(kAsk), table.program),
                       rulesOf(table, table.options), commandRules(table));
}

} // namespace refdoc
