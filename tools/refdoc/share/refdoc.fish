# Completes the words of refdoc in fish 3.
#
# "refdoc complete WORD..." prints what the last word can become. The first line is "folder" or "file"
# if a path is to be completed; after "words", each line is a word, a tab and a description.

function __refdoc_complete
    set -l typed (commandline -opc)
    set -l word (string unescape -- (commandline -ct))
    set -l answer ($typed[1] complete $typed[2..-1] "$word" 2>/dev/null)
    set -l option (string match -r -- '^--[^=]*=' "$word")
    set -l path (string replace -r -- '^--[^=]*=' '' "$word")
    switch "$answer[1]"
        case folder
            __fish_complete_directories "$path" | string replace -r '^' -- "$option"
        case file
            __fish_complete_path "$path" | string replace -r '^' -- "$option"
        case words
            string join \n -- $answer[2..-1]
    end
end

complete -c refdoc -f -a '(__refdoc_complete)'
