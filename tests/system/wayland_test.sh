#!/usr/bin/env bash
# Works the finished program on a Wayland compositor without a screen, as a user would: types, pastes, starts it again,
# goes to full screen, and ends it and at last the compositor. The places of its windows, which the desktop keeps to
# itself, are stored as they were: wayland_test.sh PROGRAM. Status 77: a tool is missing, or the compositor cannot run.
if ((EUID == 0)); then  # the compositor refuses to run as root
  asUser=(unshare --user --map-user=1000 --map-group=1000)
  "${asUser[@]}" true 2>/dev/null && exec "${asUser[@]}" bash "${BASH_SOURCE[0]}" "$@"
  echo "skipped: root cannot run the compositor"
  exit 77
fi
ownDisplay=wayland
source "$(dirname "${BASH_SOURCE[0]}")/desktop.sh"
skip_without sway swaymsg wtype wl-copy wl-paste
mkdir -m 700 "$virtualFolder/run"
export XDG_RUNTIME_DIR=$virtualFolder/run WAYLAND_DISPLAY=wayland-1 SWAYSOCK=$virtualFolder/run/sway
programEnvironment+=(QT_QPA_PLATFORM=wayland)

# In place of the tools for X11.
type_keys() { wtype -d 20 -- "$1"; }
press() {
  local key modifier
  for key in "$@"; do
    modifier=${key%+*}
    if [[ $key == *+* ]]; then wtype -M "$modifier" -k "${key#*+}" -m "$modifier"; else wtype -k "$key"; fi
  done
}
put_clipboard() { wl-copy 2>/dev/null; }
get_clipboard() { timeout 5 wl-paste -n; }
# One line for each window: "front" or "back", its title, its size with the menu bar, and "full" in full screen.
title() {
  swaymsg -rt get_tree | python3 -c '
import json, sys
def show(node):
    if node.get("app_id") == "com.fernhill.sumlet":
        print("front" if node["focused"] else "back", node["name"], "{width}x{height}".format(**node["rect"]),
              "full" if node["fullscreen_mode"] else "")
    for child in node["nodes"] + node["floating_nodes"]:
        show(child)
show(json.load(sys.stdin))'
}

start() {
  in_background window env "${programEnvironment[@]}" "$1"
  program=$!
  expect_title "$2"
}

cat >"$virtualFolder/sway.conf" <<'END'
xwayland disable
default_border none
for_window [app_id=".*"] floating enable
END
in_background sway env WLR_BACKENDS=headless WLR_RENDERER=pixman WLR_LIBINPUT_NO_DEVICES=1 \
  sway -c "$virtualFolder/sway.conf"
compositor=$!
wait_for 20 swaymsg -t get_version || give_up "the compositor does not start"
in_background keyboard wtype -s 100000000  # a keyboard that stays, so that no key is lost while one comes up
windowed='front Sumlet 365x2.. '
fullScreen='front Sumlet .* full'

settings_file write "$settings" '300 200 365 234 1+1' '-20 50 300 200 x=2'
start "$1" "$windowed"
expect_title 'back Sumlet 300x2.. '
expect_text 1+1
type_keys 6*7
press Tab
expect_text 42
text=$'// 1\u00A0000 € 😀\n\nx=6*8\n'
press shift+Tab
paste_text "$text"
press Tab
expect_text 48

# A second start hands its file over.
printf 2+2 >"$virtualFolder/in.txt"
env "${programEnvironment[@]}" "$1" "$virtualFolder/in.txt" || give_up "the second start ended with status $?"
expect_text 2+2
press ctrl+w
expect_title "$windowed"
press F11
expect_title "$fullScreen"
quit TERM
expect_stored "300 200 365 234 $text" '-20 50 300 200 x=2'

start "$1" "$fullScreen"
expect_text "$text"
press F11
expect_title "$windowed"
quit TERM

start "$1" "$windowed"
press ctrl+a
type_keys 7*7
expect_text 7*7
kill -s KILL "$compositor"
wait "$program" && give_up "the program ends with status 0 without a display"
expect_stored '300 200 365 234 7*7' '-20 50 300 200 x=2'
