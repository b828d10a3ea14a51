complete -c sumlet-eval -n '__fish_contains_opt -s e' -f
complete -c sumlet-eval -s e -x -d 'Evaluate this text in place of a file'
complete -c sumlet-eval -l lines -d 'Print all lines with their numbers and values'
complete -c sumlet-eval -s h -l help -d 'Print a help and end'
complete -c sumlet-eval -l version -d 'Print the version and end'
