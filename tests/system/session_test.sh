#!/usr/bin/env bash
# Works in two windows of the finished program, quits it, starts it again and finds everything as it was; then starts it
# once more beside itself: session_test.sh PROGRAM. Status 77 where a tool that this needs is missing.
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"

start_again() {
  env "${programEnvironment[@]}" DESKTOP_STARTUP_ID=start "$1" || give_up "the second start ended with status $?"
}
root_is_watched() { xprop -root -format seen 8s -set seen yes && test -s "$virtualFolder/root.log"; }
notice_has_ended() { grep -q STARTUP_INFO_BEGIN "$virtualFolder/root.log"; }

windows() { xdotool search --onlyvisible --pid "$program" --class '^Sumlet$'; }
shows() { (($({ windows || true; } | wc -l) == $1)); }
expect_shown() { wait_for 15 shows "$1" || give_up "expected $1 windows, but there are: $(windows)"; }
# Sets front and back, once the windows are all there: the active window and the other one.
name_windows() {
  expect_shown 2
  front=$(xdotool getactivewindow)
  back=$(windows | grep -vx "$front")
}
has_moved() { xdotool getwindowgeometry "$back" | grep -q 'Position: 50[0-9],3[5-9]'; }

settings_file write "$settings" '100 80 365 234 front' '420 300 300 200 back'

# Restored, the front window in front. Text typed into both, one of them moved, and the order changed.
start_window "$1"
expect_text front
name_windows
press ctrl+a
type_keys '6*7'
xdotool windowactivate --sync "$back"
expect_text back
press ctrl+a
type_keys 'x=5'
press Return
type_keys 'x/2'
xdotool windowmove "$back" 500 350
wait_for 15 has_moved || give_up "the window does not move"
quit TERM
expect_stored '500 350 300 200 x=5' 'x/2' '100 80 365 234 6*7'

# Once more without touching anything: nothing drifts. A second start brings the front window to the front.
start_window "$1"
expect_text $'x=5\nx/2'
name_windows
xdotool windowminimize "$back"
expect_shown 1
xdotool windowminimize "$front"
expect_shown 0
in_background root xev -root -event property
wait_for 10 root_is_watched || give_up "the events of the root window cannot be seen"
start_again "$1"
expect_text $'x=5\nx/2'
wait_for 10 notice_has_ended || give_up "the desktop still shows that the program starts"
quit INT
expect_stored '500 350 300 200 x=5' 'x/2' '100 80 365 234 6*7'

# Without a window the program stays, and a second start shows the chooser.
start_window "$1"
expect_text $'x=5\nx/2'
press alt+F4
expect_shown 1
press alt+F4
expect_shown 0
kill -0 "$program" || give_up "the program has ended with its last window"
start_again "$1"
expect_title 'Template Chooser'
quit HUP
expect_stored chooser

# Eight windows keep their order, also with the question of the fifth start in front of them.
eight=()
for i in 5 3 8 1 7 2 6 4; do eight+=("$((40 * i)) $((30 * i)) 300 200 $i"); done
for round in 1 2 3; do
  settings_file write-fifth "$settings" "${eight[@]}"
  start_window "$1"
  expect_shown 9
  quit TERM
  expect_stored "${eight[@]}"
done

# Without a settings file the older one is taken over, binary here, and left as it is.
rm "$settings"
older="$virtualFolder/home/.config/com.fernhill.sumlet.plist"
mkdir -p "$virtualFolder/home/.config"
cp "$folder/settings.bplist" "$older"
start_window "$1"
expect_text '6*7'
quit TERM
expect_stored 'Three &amp; a half: price=19.99' 'price*3' 'Hypotenuse: hyp(3;4)' \
  '100 80 365 234 6*7' '420 300 300 200 x=5' 'x/2'
cmp "$folder/settings.bplist" "$older" || give_up "the older settings file has been written"

# A damaged file: the alert that stands does not hold up quitting, and nothing is saved over what could not be read.
printf 'X' >"$settings"
start_window "$1"
quit TERM
[[ $(<"$settings") == X ]] || give_up "what could not be loaded has been saved over"
