# Bash completion for vexa. Subcommands and options come from the command's own help.

_vexa() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command=("${COMP_WORDS[0]}") word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $word != -* ]]; then
            command+=("$word")
            break
        fi
    done
    COMPREPLY=()
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W \
            "$("${command[@]}" --help 2>/dev/null | sed -nE 's/^ +(-[^ ]+).*/\1/p' | tr , '\n')" \
            -- "$current")
    elif ((${#command[@]} == 1)); then
        mapfile -t COMPREPLY < <(compgen -W \
            "$("${command[@]}" --help 2>/dev/null | sed -n '/^Subcommands:/,/^$/s/^  \([a-z0-9]*\) .*/\1/p')" \
            -- "$current")
    elif [[ $previous != --track ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}
complete -F _vexa vexa
