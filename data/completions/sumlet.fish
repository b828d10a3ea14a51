complete -c sumlet -s h -l help -d 'Print a help and end'
complete -c sumlet -l version -d 'Print the version and end'
