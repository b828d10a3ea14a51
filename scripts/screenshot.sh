#!/usr/bin/env bash
# Takes a picture of the window with an equation and its result. Needs no display.
#
#   scripts/screenshot.sh OUT.png [FILE]     FILE contains the equation; the default is a small example
#   scripts/screenshot.sh --values OUT.png [FILE]
#                                            the same with the value of each line beside it
#   scripts/screenshot.sh --desktop OUT.png [FILE...]
#                                            a whole desktop, with up to three equations or with the chooser of a first start
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

desktop=false
showValues=()
if [[ ${1:-} == --desktop ]]; then
  desktop=true
  shift
elif [[ ${1:-} == --values ]]; then
  showValues=(ctrl+l)
  shift
fi
if (($# < 1)) || [[ $1 == -* ]] || { (($# > 2)) && ! $desktop; } || (($# > 4)); then
  echo "Usage: scripts/screenshot.sh [--values] OUT.png [FILE] or scripts/screenshot.sh --desktop OUT.png [FILE...]" >&2
  exit 2
fi
picture=$1
equations=("${@:2}")
for equation in "${equations[@]}"; do
  if [[ ! -r $equation ]]; then
    echo "screenshot.sh: $equation cannot be read." >&2
    exit 2
  fi
done

ensure_packages build gui screenshot
program=$projectRoot/build/release/sumlet
if [[ ! -x $program ]]; then build_preset release; fi

source "$projectRoot/scripts/virtual_display.sh"

# An area without text has at most two colours, white and the black of the caret. Smoothed letters add more. The part to
# look at contains no borders or scroll bars.
shows_text() { (($(import -silent -window "$window" -gravity "$1" -crop "$2" -format %k info:) > 2)); }

# Moves the pointer to the corner, where it changes no part of a window.
hide_pointer() { xdotool mousemove "$1" "$2"; }

draw_window() {
  local equation=${1:-} result
  if [[ -z $equation ]]; then
    equation=$virtualFolder/example.txt
    printf '# A garden\nlength = 12.5\nwidth = 8\n\n// fence and lawn\n2*(length+width)\nlength*width' >"$equation"
  fi
  result=$("$projectRoot/build/release/sumlet-eval" "$equation" || true)
  start_display 1024x768
  start_window "$program"
  open_equation
  put_clipboard <"$equation"
  press "${showValues[@]}" ctrl+v ctrl+Home
  if [[ -n $result ]]; then
    wait_for 30 shows_text southwest 300x14+2+6 || give_up "no result appears"
  else
    wait_for 3 shows_text northwest 300x150+2+2 || true # blank lines show nothing
  fi
  hide_pointer 1023 767
  import -silent -window "$window" -frame "$picture"
}

# Place and size of each equation on the desktop, in pixels.
places=("620 40 560 300" "700 400 480 270" "80 80 500 420")

draw_desktop() {
  local files=() i=0 place shown
  start_display 1280x720
  convert -size 1280x720 gradient:'#3f6a7a'-'#1d3440' "$virtualFolder/background.png"
  display -window root "$virtualFolder/background.png" || true # draws it, and still ends with status 1
  if (($# > 0)); then mapfile -t files < <(realpath -- "$@"); fi
  start_window "$program" "${files[@]}"
  if (($# > 0)); then
    wait_for 30 all_windows_are_there $# || give_up "not all windows open"
    for shown in $(equation_windows); do
      read -ra place <<<"${places[i++]}"
      xdotool windowsize --sync "$shown" "${place[@]:2}" windowmove "$shown" "${place[@]:0:2}" windowactivate --sync "$shown"
      window=$shown
      press ctrl+Home
      wait_for 30 shows_text southwest 300x14+2+6 || give_up "no result appears"
    done
  fi
  hide_pointer 1279 719
  sleep 1 # until the last frame is drawn as that of the active window
  import -silent -window root -define png:compression-level=9 "$picture"
}
equation_windows() { xdotool search --onlyvisible --class '^sumlet$'; }
all_windows_are_there() { (($(equation_windows | wc -l) == $1)); }

if $desktop; then draw_desktop "${equations[@]}"; else draw_window "${equations[@]}"; fi
