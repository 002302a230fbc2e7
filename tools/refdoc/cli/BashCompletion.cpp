#include "tools/refdoc/cli/CompletionScripts.hpp"

#include <fmt/format.h>

#include <string_view>
#include <vector>

namespace refdoc {

namespace {

constexpr std::string_view kScript =
    R"(# bash completion of @PROGRAM@; generated, do not edit

# Sets REPLY to a word as the shell would pass it on: without its quotes.
_@PROGRAM@_unquote() {
    local rest=$1 quote='' char
    REPLY=
    while [[ -n $rest ]]; do
        char=${rest:0:1} rest=${rest:1}
        if [[ -z $quote && ( $char == \" || $char == \' ) ]]; then
            quote=$char
        elif [[ $char == "$quote" ]]; then
            quote=
        elif [[ $char == \\ && $quote != \' ]]; then
            REPLY+=${rest:0:1} rest=${rest:1}
        else
            REPLY+=$char
        fi
    done
}

# Sets typed to the words up to the cursor as they were typed. Readline also breaks words at "=" and
# ":"; pieces without a space between them are one word.
_@PROGRAM@_words() {
    local line=${COMP_LINE:0:COMP_POINT} rest piece i
    typed=()
    for ((i = 0; i <= COMP_CWORD; i++)); do
        rest=${line#"${line%%[![:space:]]*}"}
        piece=${COMP_WORDS[i]}
        ((i == COMP_CWORD)) && piece=$rest
        if ((i > 0)) && [[ $rest == "$line" ]]; then
            typed[-1]+=$piece
        else
            typed+=("$piece")
        fi
        line=${rest:${#piece}}
    done
}

_@PROGRAM@() {
    local IFS=$' \t\n' REPLY typed word words=() option value line
    _@PROGRAM@_words
    for word in "${typed[@]:1}"; do
        _@PROGRAM@_unquote "$word"
        words+=("$REPLY")
    done
    COMPREPLY=()

    value=${words[-1]} option=
    ((${#words[@]} > 1)) && option=${words[-2]}
    [[ $value == --*=* ]] && option=${value%%=*} value=${value#*=}
    case $option in
    @FOLDERS@)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$value")
        return
        ;;
    esac

    while IFS= read -r line; do
        word=${line%%$'\t'*}
        [[ ${typed[-1]} == [\"\']* ]] || printf -v word %q "$word"
        # What readline takes for an earlier word stays as it is.
        [[ $value == *:* && $COMP_WORDBREAKS == *:* ]] && word=${word#"${value%"${value##*:}"}"}
        COMPREPLY+=("$word")
    done < <("$1" complete "${words[@]}" 2>/dev/null)
} && complete -F _@PROGRAM@ @PROGRAM@
)";

std::string replaced(std::string text, std::string_view what, std::string_view with) {
    for (std::size_t at = text.find(what); at != std::string_view::npos;
         at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

void addFolders(std::string& pattern, const std::vector<OptionEntry>& options) {
    for (const OptionEntry& option : options) {
        if (option.kind == ValueKind::Folder)
            pattern += (pattern.empty() ? "" : " | ") + std::string(option.name);
    }
}

} // namespace

std::string bashCompletion(const CommandTable& table) {
    std::string folders;
    addFolders(folders, table.options);
    for (const CommandEntry& command : table.commands)
        addFolders(folders, command.options);
    return replaced(replaced(std::string(kScript), "@PROGRAM@", table.program), "@FOLDERS@",
                    folders);
}

} // namespace refdoc
