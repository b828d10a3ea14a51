#!/usr/bin/env bash
# Takes away from the finished program what a desktop gives it, one after the other: the session bus, the right time,
# the window manager, the display: display_faults_test.sh PROGRAM. Status 77 where a tool that this needs is missing.
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"
skip_without faketime

# calculates TEXT RESULT [COMMAND...]: typed in place of what is there; the command runs before the result can be there
calculates() {
  press ctrl+a
  type_keys "$1"
  "${@:3}"
  press Tab
  expect_text "$2"
  press shift+Tab
}

other_window_is_active() { [[ $(xdotool getactivewindow) != "$window" ]]; }

# Only what a user can set: the clock that counts from the start of the machine goes on.
set_clock() { printf '%s' "$1" >"$virtualFolder/clock"; }
set_clock +0

preload=$(faketime -f +0 printenv LD_PRELOAD)
programEnvironment+=(LD_PRELOAD="$preload" FAKETIME_TIMESTAMP_FILE="$virtualFolder/clock" FAKETIME_NO_CACHE=1
  FAKETIME_DONT_FAKE_MONOTONIC=1 ASAN_OPTIONS=verify_asan_link_order=0
  DBUS_SESSION_BUS_ADDRESS=unix:path="$virtualFolder/none")

displayServer=${virtualProcesses[0]}
windowManager=${virtualProcesses[1]}
# Nobody reads what the program prints.
printf '#!/usr/bin/env bash\nexec "%s" > >(:) 2>&1\n' "$1" >"$virtualFolder/unheard"
chmod +x "$virtualFolder/unheard"
start_window "$virtualFolder/unheard"
open_equation

# The clock jumps while the calculation is due.
calculates 6*7 42 set_clock -1d
calculates 6*8 48 set_clock -20y
calculates 6*9 54 set_clock +20y
calculates 5*5 25 set_clock +0

# The window manager ends, and the keyboard may go with it; another one finds the window and the program at work.
kill -s KILL "$windowManager"
wait "$windowManager" 2>/dev/null || true
in_background openbox openbox --sm-disable
wait_for 20 window_manager_runs || give_up "the window manager does not come back"
xdotool windowactivate "$window"
wait_for 30 area_reads '5*5' || give_up "the window does not get the keyboard back"
calculates 5*6 30
press ctrl+n
wait_for 20 other_window_is_active || give_up "no window opens"
calculates 5*7 35

# The display goes: what stands in the windows is saved.
kill -s KILL "$displayServer"
status=0
wait "$program" || status=$?
((status == 1)) || give_up "the program ended with status $status"
stored=$(settings_file show "$settings" | tail -n 2 | cut -d ' ' -f 5)
[[ $stored == $'5*7\n5*6' ]] || give_up "stored is '$stored'"

# A start without a display says so and leaves no core dump behind. The number that was the display's may be another
# one's by now.
status=0
env "${programEnvironment[@]}" DISPLAY=:65000 "$1" 2>"$virtualFolder/words" || status=$?
((status == 1)) || give_up "the start without a display ended with status $status"
grep -qx 'sumlet: there is no display to show a window on' "$virtualFolder/words" || give_up "it said $(<"$virtualFolder/words")"
