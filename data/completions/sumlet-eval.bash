# bash completion of sumlet-eval: its options, then files, which do not go together with -e.
_sumlet_eval() {
    local before=" ${COMP_WORDS[*]:1:COMP_CWORD-1} "
    COMPREPLY=()
    if [[ $3 == -e ]]; then
        return
    elif [[ $2 == -* && $before != *" -- "* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "-e --lines -h --help --version --" -- "$2")
    elif [[ $before != *" -e "* ]]; then
        compopt -o default
    fi
}
complete -F _sumlet_eval sumlet-eval
