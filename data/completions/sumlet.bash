# bash completion of sumlet: its options, then files.
_sumlet() {
    COMPREPLY=()
    if [[ $2 == -* && " ${COMP_WORDS[*]:1:COMP_CWORD-1} " != *" -- "* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "-h --help --version --" -- "$2")
    else
        compopt -o default
    fi
}
complete -F _sumlet sumlet
