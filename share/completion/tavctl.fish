# Completion of tavctl's command line in fish: tavctl itself says what may follow.

function __tavctl_offers
    set -l words (commandline -opc) (commandline -ct)
    set -l current (string replace -r -- '^--[^=]*=' '' $words[-1])
    set -l option (string match -r -- '^--[^=]*=' $words[-1]; or echo)
    set -l offers ($words[1] complete $words[2..-1] 2>/dev/null)
    switch "$offers[1]"
        case :files
            set offers (__fish_complete_path $current)
        case :directories
            set offers (__fish_complete_directories $current '')
    end
    printf '%s\n' $option$offers
end

complete -c tavctl -f -a '(__tavctl_offers)'
