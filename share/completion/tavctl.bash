# Completion of tavctl's command line in bash: tavctl itself says what may follow.
# shellcheck shell=bash

_tavctl() {
    local current=${COMP_WORDS[COMP_CWORD]} offers
    mapfile -t offers < <("${COMP_WORDS[0]}" complete "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
    [[ $current != = ]] || current='' # "--root=" is two words to the shell
    case ${offers[0]} in
        :files)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            ;;
        :directories)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            ;;
        *) mapfile -t COMPREPLY < <(compgen -W "${offers[*]%%$'\t'*}" -- "$current") ;;
    esac
}

complete -F _tavctl tavctl
