#!/usr/bin/env bash
# Installs a build into a tree of its own and works both programs from there: installed_test.sh BUILD VERSION.
# Status 77 where a tool that this needs is missing.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$root/scripts/virtual_display.sh"
skip_without Xvfb openbox xdotool xclip xprop cmake appstreamcli

tree=$virtualFolder/tree
version=$2
DESTDIR=$tree cmake --install "$1" --prefix /usr >"$virtualFolder/install.log" || give_up "the build cannot be installed"

# expect WHAT WANTED FOUND
expect() { [[ $2 == "$3" ]] || give_up "$1: expected '$2', but it is '$3'"; }

bin=$tree/usr/bin
share=$tree/usr/share
expect "an installed example" 84 "$("$bin/sumlet-eval" "$share/doc/sumlet/examples/triangle.txt")"
for page in "$share"/doc/sumlet/*.md; do
  while read -r link; do
    [[ -f ${page%/*}/$link ]] || give_up "$page links to $link, which is not installed"
  done < <(grep -oP '\]\(\K(?!https?:)[^)#]+' "$page")
done

metainfo=$share/metainfo/com.fernhill.sumlet.metainfo.xml
expect "version of the command" "sumlet-eval $version" "$("$bin/sumlet-eval" --version)"
expect "version of the program, without a display" "sumlet $version" "$(DISPLAY='' "$bin/sumlet" --version)"
expect "latest release in the metainfo" "$version" "$(grep -oPm1 '<release version="\K[^"]*' "$metainfo")"
expect "version of the package" "sumlet ($version)" "$(sed 's/ unstable.*//;q' "$root/debian/changelog")"
expect "latest version in CHANGELOG.md" "$version" "$(grep -oPm1 '^## \K[0-9.]+' "$root/CHANGELOG.md")"

# bash finds the completions of a program by its name, below the folders of XDG_DATA_DIRS.
if [[ -f /usr/share/bash-completion/bash_completion ]]; then
  for program in sumlet sumlet-eval; do
    completed=$(XDG_DATA_DIRS=$share bash --norc -c '
      source /usr/share/bash-completion/bash_completion
      _completion_loader "$0" || true
      read -r _ _ function _ < <(complete -p "$0")
      COMP_WORDS=("$0" --vers) COMP_CWORD=1
      "$function" "$0" --vers "$0"
      echo "${COMPREPLY[*]}"' "$program")
    expect "completion of $program --vers" --version "$completed"
  done
fi

entry=$share/applications/com.fernhill.sumlet.desktop
entry_value() { sed -n "s/^$1=//p" "$entry"; }
appstreamcli validate-tree --no-net --pedantic "$tree" >"$virtualFolder/metainfo.log" || give_up "the tree's metainfo is wrong"
[[ -f $share/icons/hicolor/scalable/apps/$(entry_value Icon).svg ]] || give_up "the entry's icon is not installed"

# The desktop's way to the program, and from its window back to the entry.
exec=$(entry_value Exec)
start_display 1024x768
start_window "$bin/${exec% %F}"
open_equation
type_keys 6*7
press Tab
expect_text 42
class=$(entry_value StartupWMClass)
expect "class of the window" "WM_CLASS(STRING) = \"sumlet\", \"$class\"" "$(xprop -id "$window" WM_CLASS)"
kill "$program"
wait "$program" || give_up "the program ends with status $?"
