#!/usr/bin/env bash
# Works the finished program as a user at the keyboard would: types, pastes, works the menus, exports and imports files,
# and goes to full screen and back, over a restart too: commands_test.sh PROGRAM. Status 77: a tool is missing.
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

is_full_screen() { xprop -id "$(xdotool getactivewindow)" _NET_WM_STATE | grep -q FULLSCREEN; }
is_windowed() { ! is_full_screen; }
width_is() { xdotool getwindowgeometry "$(xdotool getactivewindow)" | grep -q "Geometry: $1x"; }

start_window "$1"
open_equation

at() { xdotool mousemove --window "$window" "$@"; }

# The result dragged into the equation arrives once, and then the pointer and the keyboard are free. What is typed with
# the focus in the result goes to the equation.
type_keys x=2
press Return
type_keys 'x*21'
press Tab
expect_text 42
at 15 242 click --repeat 3 1
sleep 0.6  # the next press is no further click
at 15 236 mousedown 1
for y in 220 190 160 120; do at 15 $y sleep 0.05; done
xdotool mouseup 1
type_keys +7
expect_text $'x=2\nx*2142+7'
at 15 242 click 1
type_keys 8
expect_text $'x=2\nx*2142+78'
press ctrl+a
type_keys foo
press Tab
expect_text '"foo" Error: Variable Unknown'

# Pasted text comes back byte for byte: no-break space, characters of one to four bytes, an empty line at the end.
text=$'// 1\u00A0000 € 𝜋 😀\n\n6*7\n'
press shift+Tab
paste_text "$text"
press Tab
expect_text 42
press shift+Tab ctrl+z
expect_text foo
press ctrl+shift+z

# A menu opened by its mnemonic, an item chosen by the arrows, items chosen by their shortcuts.
press ctrl+shift+n
expect_title 'Template Chooser'
press Escape
expect_title Sumlet
press alt+f Down Return  # the second item
expect_title 'Template Chooser'
press ctrl+w
expect_title Sumlet

# What leaves is what was typed, byte for byte. Two files come in as two equations.
exported=$virtualFolder/exported.txt
press ctrl+shift+s
wait_for 15 title_is 'Save As' || expect_title 'Save File'
press ctrl+a
type_keys "$exported"
press Return
wait_for 15 test -s "$exported" || give_up "nothing is exported"
printf %s "$text" | cmp - "$exported" || give_up "the exported text differs"
printf '2+2\n' >"$virtualFolder/in.txt"
expect_title Sumlet
press ctrl+o
expect_title 'Select Text (.txt) files to import as equations.'
type_keys "\"$exported\" \"$virtualFolder/in.txt\""
press Return
expect_text 2+2

# Full screen by the command and back, and still there after a restart, with the windowed size behind it.
press F11
wait_for 15 is_full_screen || give_up "no full screen"
quit TERM
start_window "$1"
wait_for 15 is_full_screen || give_up "full screen is not restored"
expect_text 2+2
press F11
wait_for 15 is_windowed || give_up "full screen does not end"
wait_for 15 width_is 365 || give_up "the windowed size is lost"
