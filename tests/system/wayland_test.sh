#!/usr/bin/env bash
# Runs the finished program on a Wayland compositor without a screen: places that the desktop does not tell are kept, and
# the session is saved when the compositor ends: wayland_test.sh PROGRAM. Status 77 where a tool that this needs is missing.
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"
skip_without weston
programEnvironment+=(WAYLAND_DISPLAY=wayland-test QT_QPA_PLATFORM=wayland)
has_started() { kill -0 "$program" && grep -q . "$(dirname "$settings")/lock"; }
is_listening() { test -S "$virtualFolder/run/wayland-test"; }

windows=('300 200 365 234 6*7' '-20 50 300 200 x=2')
settings_file write "$settings" "${windows[@]}"
mkdir -m 700 "$virtualFolder/run"
for end in program compositor; do
  in_background weston env XDG_RUNTIME_DIR="$virtualFolder/run" weston --backend=headless-backend.so --socket=wayland-test
  compositor=$!
  wait_for 20 is_listening || give_up "the compositor does not start"
  in_background window env "${programEnvironment[@]}" "$1"
  program=$!
  wait_for 20 has_started || give_up "the program does not start"
  env "${programEnvironment[@]}" "$1" || give_up "a second start is not answered"  # once the windows are there
  before=$(cksum <"$settings")
  if [[ $end == program ]]; then quit TERM; fi
  kill -s KILL "$compositor"
  wait "$compositor" 2>/dev/null || true
  if [[ $end == compositor ]]; then wait "$program" && give_up "the program ends with status 0 without a display"; fi
  [[ $(cksum <"$settings") != "$before" ]] || give_up "nothing is saved at the end of the $end"
  expect_stored "${windows[@]}"
  rm -f "$virtualFolder/run/wayland-test" "$(dirname "$settings")/lock"
done
