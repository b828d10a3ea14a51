#!/usr/bin/env bash
# Works the finished program as a user at the keyboard would: real_window_test.sh PROGRAM. Status 77 where a tool that
# this needs is missing.
set -euo pipefail

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/virtual_display.sh"
skip_without Xvfb openbox xdotool xclip xprop

# area_reads TEXT: whether the area that has the focus holds TEXT. Copying nothing leaves the clipboard as it was.
area_reads() {
  press ctrl+a ctrl+c
  [[ $(get_clipboard && echo .) == "$1." ]]
}
# expect TEXT: what the area that has the focus holds, at once or soon.
expect() { wait_for 15 area_reads "$1" || give_up "expected '$1', but the area reads '$(get_clipboard)'"; }

start_display 1024x768
start_window "$1"
open_equation

type_keys x=2
press Return
type_keys 'x*21'
press Tab
expect 42

# The result cannot be typed over; the equation can, and is calculated anew.
type_keys 7
press BackSpace
expect 42
press shift+Tab ctrl+a
type_keys 'foo'
press Tab
expect '"foo" Error: Variable Unknown'

# Pasted text comes back byte for byte: no-break space, characters of one to four bytes, an empty line at the end.
text=$'// 1\u00A0000 € 𝜋 😀\n\n6*7\n'
printf %s "$text" | put_clipboard
press shift+Tab ctrl+a ctrl+v
expect "$text"
press Tab
expect 42
press shift+Tab ctrl+z
expect foo

properties=$(xprop -id "$window" WM_CLASS _NET_WM_NAME WM_NORMAL_HINTS)
for property in '= "sumlet", "sumlet"' '= "Sumlet"' 'size: 365 by' 'minimum size: 64 by'; do
  grep -qF "$property" <<<"$properties" || give_up "the window's properties lack $property: $properties"
done
