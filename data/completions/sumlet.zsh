#compdef sumlet
_arguments -S \
  '(- *)'{-h,--help}'[print a help and end]' \
  '(- *)--version[print the version and end]' \
  '*:file:_files'
