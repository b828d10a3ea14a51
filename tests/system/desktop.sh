#!/usr/bin/env bash
# Sourced by the tests that work the finished program on a display of its own: what they ask of it. Status 77 where a
# tool that this needs is missing.
set -euo pipefail

folder=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$folder/../../scripts/virtual_display.sh"
skip_without Xvfb openbox xdotool xclip xprop python3

settings="$virtualFolder/home/.local/share/Application Support/com.fernhill.sumlet/preferences"
settings_file() { python3 -B "$folder/settings_file.py" "$@"; }

# expect_stored LINE...: the templates and windows of the settings file
expect_stored() {
  local stored
  stored=$(settings_file show "$settings") || give_up "the settings file cannot be read"
  [[ $stored == "$(printf '%s\n' "$@")" ]] || give_up "expected '$*', but stored is '$stored'"
}

# area_reads TEXT: whether the area that has the focus holds TEXT. Copying nothing leaves the clipboard as it was.
area_reads() {
  press ctrl+a ctrl+c
  [[ $(get_clipboard && echo .) == "$1." ]]
}
# What the area that has the focus holds, and what the window in front is called, at once or soon.
expect_text() { wait_for 15 area_reads "$1" || give_up "expected '$1', but the area reads '$(get_clipboard)'"; }
title() { xdotool getactivewindow getwindowname; }
title_is() { title | grep -qx "$1"; }
expect_title() { wait_for 15 title_is "$1" || give_up "expected '$1' in front, but it is '$(title)'"; }

# paste_text TEXT: replaces what the area that has the focus holds. The toolkit waits only a second for the clipboard's
# owner, which a busy machine can exceed: then nothing is pasted, and it is tried again.
paste_text() {
  local attempt
  for attempt in 1 2 3; do
    printf %s "$1" | put_clipboard
    press ctrl+a ctrl+v
    if wait_for 5 area_reads "$1"; then return; fi
  done
  give_up "pasted '$1', but the area reads '$(get_clipboard)'"
}

# quit SIGNAL: the program ends with status 0
quit() {
  local status=0
  kill -s "$1" "$program"
  wait "$program" || status=$?
  ((status == 0)) || give_up "the program ended with status $status on $1"
}

[[ -n ${ownDisplay:-} ]] || start_display 1024x768  # the caller may have another one
