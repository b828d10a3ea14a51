#!/usr/bin/env bash
# Works the menus of the finished program by keyboard, exports and imports files, and goes to full screen and back, over
# a restart too: commands_test.sh PROGRAM. Status 77 where a tool that this needs is missing.
set -euo pipefail

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/virtual_display.sh"
skip_without Xvfb openbox xdotool xclip xprop

text_reads() {
  press ctrl+a ctrl+c
  [[ $(get_clipboard && echo .) == "$1." ]]
}
expect_text() { wait_for 15 text_reads "$1" || give_up "expected '$1', but the window reads '$(get_clipboard)'"; }
title_is() { xdotool getactivewindow getwindowname | grep -qx "$1"; }
expect_title() { wait_for 15 title_is "$1" || give_up "expected '$1' in front, but it is '$(xdotool getactivewindow getwindowname)'"; }
equations() { xdotool search --onlyvisible --pid "$program" --name '^Sumlet$' | wc -l; }
has_equations() { (($(equations) == $1)); }
expect_equations() { wait_for 15 has_equations "$1" || give_up "expected $1 equations, but there are $(equations)"; }
is_full_screen() { xprop -id "$(xdotool getactivewindow)" _NET_WM_STATE | grep -q FULLSCREEN; }
is_windowed() { ! is_full_screen; }
width_is() { xdotool getwindowgeometry "$(xdotool getactivewindow)" | grep -q "Geometry: $1x"; }

start_display 1024x768
start_window "$1"
open_equation

# A menu opened by its mnemonic, an item chosen by the arrows, items chosen by their shortcuts.
text=$'# \u00A0 𝜋 and a line end\n6*7\n'
printf %s "$text" | put_clipboard
press ctrl+v
press ctrl+shift+n
expect_title 'Template Chooser'
press Escape
expect_title Sumlet
press alt+f Down Return  # the second item
expect_title 'Template Chooser'
press ctrl+w
expect_title Sumlet
press ctrl+comma
expect_title Preferences
press ctrl+w
expect_title Sumlet

# What leaves is what was typed, byte for byte; what comes in leaves out the file without text.
exported=$virtualFolder/exported.txt
press ctrl+shift+s
wait_for 15 title_is 'Save As' || expect_title 'Save File'
press ctrl+a
type_keys "$exported"
press Return
wait_for 15 test -s "$exported" || give_up "nothing is exported"
printf %s "$text" | cmp - "$exported" || give_up "the exported text differs"
mkdir "$virtualFolder/in"
printf '1+1\n' >"$virtualFolder/in/a.txt"
printf ' \n' >"$virtualFolder/in/b.txt"
printf '2+2\n' >"$virtualFolder/in/c.txt"
expect_title Sumlet
press ctrl+o
expect_title 'Select Text (.txt) files to import as equations.'
type_keys "\"$virtualFolder/in/a.txt\" \"$virtualFolder/in/b.txt\" \"$virtualFolder/in/c.txt\""
press Return
expect_equations 4  # three and the alert about the empty file
press Return
expect_equations 3
expect_text '2+2'

# Full screen by the command and back, and still there after a restart, with the windowed size behind it.
press F11
wait_for 15 is_full_screen || give_up "no full screen"
kill -s TERM "$program"
wait "$program" || give_up "the program does not end well"
start_window "$1"
wait_for 15 is_full_screen || give_up "full screen is not restored"
expect_text '2+2'
press F11
wait_for 15 is_windowed || give_up "full screen does not end"
wait_for 15 width_is 365 || give_up "the windowed size is lost: $(xdotool getwindowgeometry "$(xdotool getactivewindow)")"
