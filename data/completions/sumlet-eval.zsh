#compdef sumlet-eval
_arguments -S \
  '(- *)'{-h,--help}'[print a help and end]' \
  '(- *)--version[print the version and end]' \
  '--lines[print all lines with their numbers and values]' \
  '(*)*-e+[evaluate this text in place of a file]:text: ' \
  '(-e)*:file:_files'
