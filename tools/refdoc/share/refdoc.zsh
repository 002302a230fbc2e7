#compdef refdoc
# Completes the words of refdoc in zsh 5; an autoloaded function named _refdoc.
#
# "refdoc complete WORD..." prints what the last word can become. The first line is "folder" or "file"
# if a path is to be completed; after "words", each line is a word, a tab and a description.

local -a typed answer
typed=("${(@Q)words[1,CURRENT-1]}" "${(Q)PREFIX}")
answer=("${(@f)$(${typed[1]} complete "${(@)typed[2,-1]}" 2>/dev/null)}")
case $answer[1] in
    folder | file)
        [[ $PREFIX == --*=* ]] && compset -P 1 '*='
        if [[ $answer[1] == folder ]]; then
            _files -/
        else
            _files
        fi
        ;;
    words)
        shift answer
        # _describe expects "word:description", with backslashes before other colons.
        answer=("${(@)answer//\\/\\\\}")
        answer=("${(@)answer//:/\\:}")
        answer=("${(@)answer/$'\t'/:}")
        _describe -V word answer
        ;;
esac
