# shellcheck shell=bash
# Completes the words of refdoc in bash 4.3 and later; needs no other package.
#
# "refdoc complete WORD..." prints what the last word can become. The first line is "folder" or "file"
# if a path is to be completed; after "words", each line is a word, a tab and a description.

# Sets REPLY to a word without its quotes, as the shell would pass it on.
_refdoc_unquote() {
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

# Sets typed to the words up to the cursor, as typed. Readline also breaks words at "=" and ":"; pieces
# without a space between them are one word.
_refdoc_words() {
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

_refdoc() {
    local IFS=$' \t\n' REPLY typed word words=() answer line value replaced breaks
    _refdoc_words
    for word in "${typed[@]:1}"; do
        _refdoc_unquote "$word"
        words+=("$REPLY")
    done
    mapfile -t answer < <("$1" complete "${words[@]}" 2>/dev/null)

    # Readline replaces only what follows the last break in the word.
    replaced=${words[-1]}
    breaks=${COMP_WORDBREAKS//[^=:]/}
    [[ -n $breaks && ${typed[-1]} != [\"\']* ]] && replaced=${replaced##*["$breaks"]}

    COMPREPLY=()
    case ${answer[0]} in
    folder | file)
        value=${words[-1]}
        [[ $value == --*=* ]] && value=${value#*=}
        compopt -o filenames
        if [[ ${answer[0]} == folder ]]; then
            mapfile -t COMPREPLY < <(compgen -d -- "$value")
        else
            mapfile -t COMPREPLY < <(compgen -f -- "$value")
        fi
        ;;
    words)
        for line in "${answer[@]:1}"; do
            word=${line%%$'\t'*}
            word=${word:${#words[-1]} - ${#replaced}}
            [[ ${typed[-1]} == [\"\']* ]] || printf -v word %q "$word"
            COMPREPLY+=("$word")
        done
        ;;
    esac
} && complete -F _refdoc refdoc
