#!/usr/bin/env bash
# Ends the finished program while something is open in front of its window. It ends with status 0, and the typed text is
# saved: ends_test.sh PROGRAM. Status 77 where a tool that this needs is missing.
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

windows_shown() { xdotool search --onlyvisible --pid "$program" --class . 2>/dev/null | wc -l; }
is_another_shown() { (($(windows_shown) > shown)); }
# expect_popup COMMAND...: the command shows one more window.
expect_popup() {
  shown=$(windows_shown)
  "$@"
  wait_for 15 is_another_shown || give_up "nothing comes up after $*"
}
# expect_window TITLE KEY...: the keys bring a window with this title to the front.
expect_window() {
  press "${@:2}"
  expect_title "$1"
}
importTitle='Select Text (.txt) files to import as equations.'

open_menu() { expect_popup press alt+e; }
open_context_menu() { expect_popup xdotool mousemove --window "$window" 60 60 click 3; }
open_sheet() { expect_window Untitled alt+f Down Down Return; }
open_file_dialog() { expect_window "$importTitle" ctrl+o; }
open_list() {
  expect_window Preferences ctrl+comma
  expect_popup press Tab space
}
open_alert() {
  open_file_dialog
  : >"$virtualFolder/empty.txt"
  type_keys "$virtualFolder/empty.txt"
  expect_window Sumlet Return
}
begin_drag() {
  xdotool mousemove --window "$window" 20 45 mousedown 1 mousemove_relative 5 0 sleep 0.2 mousemove_relative 40 40
}
enter_full_screen() { press F11; }

for open in open_menu open_context_menu open_sheet open_file_dialog open_list open_alert begin_drag enter_full_screen; do
  settings_file write "$settings" '100 80 365 234 1+1'
  start_window "$1"
  press ctrl+a
  type_keys '6*7'
  expect_text '6*7'  # and it is selected
  "$open"
  quit TERM
  xdotool mouseup 1
  settings_file show "$settings" | grep -q '6\*7$' || give_up "the text is lost after $open"
done
