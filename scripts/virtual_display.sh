#!/usr/bin/env bash
# A virtual display with a window manager. When the script ends, it stops everything that it has started on the display.
# The programs there use a temporary home.
#
#   scripts/virtual_display.sh WIDTHxHEIGHT COMMAND...    runs a command on the display
#
# Sourced, it defines functions that control the window program:
#
#   start_display WIDTHxHEIGHT      sets DISPLAY
#   start_window PROGRAM [FILE...]  starts the window program, sets `program` to its process ID, and sets `window` once
#                                   its window has the focus
#   open_equation                   opens an empty equation from the chooser of a first start, and sets `window`
#   type_keys TEXT, press KEY...    sends keys
#   put_clipboard, get_clipboard    from standard input, to standard output
#   expect_text TEXT                waits until the area with the focus holds TEXT
#   skip_without TOOL...            ends with status 77, "skipped" to the test runner, where a tool is missing
#   wait_for SECONDS COMMAND...     repeats the command until it succeeds; fails when the time is over

virtualFolder=$(mktemp -d)
virtualProcesses=()

# Removes the settings of the developer's desktop from the environment, and sets the fonts of fonts.conf and a temporary
# home. Variables that a script exports after sourcing this file still reach the programs.
unset "${!DBUS_@}" "${!DESKTOP_@}" "${!FREETYPE_@}" "${!GDK_@}" "${!GTK_@}" "${!KDE_@}" "${!LANG@}" "${!LC_@}" \
  "${!QT_@}" "${!SESSION_@}" "${!XCURSOR_@}" "${!XDG_@}" WAYLAND_DISPLAY XAUTHORITY
export FONTCONFIG_FILE LC_ALL=C.UTF-8 TZ=UTC HOME=$virtualFolder/home
# The sanitizers would report memory that the desktop's libraries, and Qt 6.8's services, keep until the end.
export LSAN_OPTIONS="suppressions=$virtualFolder/leaks:print_suppressions=0"
printf 'leak:%s\n' libdbus-1 libfontconfig QGenericUnixServices >"$virtualFolder/leaks"
FONTCONFIG_FILE=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/fonts.conf
mkdir "$HOME"

end_virtual_display() {
  local i
  for ((i = ${#virtualProcesses[@]} - 1; i >= 0; i--)); do
    kill "${virtualProcesses[i]}" 2>/dev/null || true
    wait "${virtualProcesses[i]}" 2>/dev/null || true
  done
  rm -rf "$virtualFolder"
}
trap end_virtual_display EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

skip_without() {
  local tool
  for tool in "$@"; do
    if command -v "$tool" >/dev/null; then continue; fi
    echo "skipped: there is no $tool"
    exit 77
  done
}

wait_for() {
  local end=$((SECONDS + $1 + 1))
  shift
  until "$@" >/dev/null 2>&1; do
    if ((SECONDS >= end)); then return 1; fi
    sleep 0.05
  done
}

# in_background NAME COMMAND...: writes the output to a log, which give_up prints.
in_background() {
  local name=$1
  shift
  "$@" >"$virtualFolder/$name.log" 2>&1 &
  virtualProcesses+=($!)
}

give_up() {
  echo "$0: $*" >&2
  tail -n 20 "$virtualFolder"/*.log >&2
  exit 1
}

start_display() {
  local number=$virtualFolder/display
  : >"$number"
  # The server chooses a free number and prints it once it accepts clients. Without -noreset it would restart, and reject
  # clients meanwhile, whenever its last client disconnects.
  in_background Xvfb sh -c 'exec Xvfb -displayfd 3 -screen 0 "$1"x24 -nolisten tcp -noreset 3>"$2"' sh "$1" "$number"
  export VIRTUAL_DISPLAY=$! VIRTUAL_WINDOW_MANAGER  # process IDs, for tests that kill them
  wait_for 20 test -s "$number" || give_up "the virtual display does not start"
  DISPLAY=:$(<"$number")
  export DISPLAY
  in_background openbox openbox --sm-disable
  VIRTUAL_WINDOW_MANAGER=$!
  wait_for 20 window_manager_runs || give_up "the window manager does not start"
}

window_manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }

start_window() {
  mkdir -p "$virtualFolder/run"
  chmod 700 "$virtualFolder/run"
  in_background window env --default-signal=HUP XDG_RUNTIME_DIR="$virtualFolder/run" QT_QPA_PLATFORM=xcb "$@"
  program=$!
  wait_for 30 window_is_active_or_gone || give_up "the window does not come up"
  kill -0 "$program" 2>/dev/null || give_up "$1 has ended"
}

window_is_active_or_gone() {
  kill -0 "$program" || return 0
  window=$(xdotool getactivewindow) && xdotool search --onlyvisible --pid "$program" --class '^Sumlet$' | grep -qx "$window"
}

open_equation() {
  press Return
  wait_for 30 equation_is_active || give_up "no equation opens"
}
equation_is_active() { window_is_active_or_gone && xdotool getwindowname "$window" | grep -qx Sumlet; }

type_keys() { xdotool type --delay 20 -- "$1"; }
press() { xdotool key --delay 20 -- "$@"; }

put_clipboard() {
  cat >"$virtualFolder/clipboard"
  in_background xclip xclip -quiet -selection clipboard -i "$virtualFolder/clipboard"
  wait_for 10 clipboard_is_set || give_up "the clipboard cannot be set"
}
clipboard_is_set() { get_clipboard | cmp -s - "$virtualFolder/clipboard"; }
get_clipboard() { timeout 5 xclip -selection clipboard -o; }

# Whether the area with the focus holds TEXT. Copies its text to compare it, but an empty area leaves the clipboard
# unchanged.
focused_area_holds() {
  press ctrl+a ctrl+c
  [[ $(get_clipboard && echo .) == "$1." ]]
}
expect_text() { wait_for 30 focused_area_holds "$1" || give_up "expected '$1', but the area reads '$(get_clipboard)'"; }

if [[ ${BASH_SOURCE[0]} == "$0" ]]; then
  set -euo pipefail
  skip_without Xvfb openbox xdotool xclip xprop
  start_display "$1"
  "${@:2}"
fi
