#!/usr/bin/env bash
# Draws the window, with an equation in it and its result, as a picture. Needs no display.
#
#   scripts/screenshot.sh OUT.png [FILE]     FILE holds the equation; without one it is a small example
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

if (($# < 1 || $# > 2)) || [[ $1 == -* ]]; then
  echo "Usage: scripts/screenshot.sh OUT.png [FILE]" >&2
  exit 2
fi
picture=$1
equation=${2:-}
if [[ -n $equation && ! -r $equation ]]; then
  echo "screenshot.sh: $equation cannot be read." >&2
  exit 2
fi

ensure_packages build gui screenshot
if [[ ! -x $projectRoot/build/release/sumlet ]]; then build_preset release; fi

source "$projectRoot/scripts/virtual_display.sh"

if [[ -z $equation ]]; then
  equation=$virtualFolder/example.txt
  printf '# A garden\nlength = 12.5\nwidth = 8\n\n// fence and lawn\n2*(length+width)\nlength*width' >"$equation"
fi
result=$("$projectRoot/build/release/sumlet-eval" "$equation" || true)

# An area without text is white, perhaps with a black caret; smoothed letters bring more colours. The places looked at
# leave out borders and scroll bars.
shows_text() { (($(import -silent -window "$window" -gravity "$1" -crop "$2" -format %k info:) > 2)); }

start_display 1024x768
start_window "$projectRoot/build/release/sumlet"
open_equation
put_clipboard <"$equation"
press ctrl+v ctrl+Home
if [[ -n $result ]]; then
  wait_for 30 shows_text southwest 300x14+2+6 || give_up "no result appears"
else
  wait_for 3 shows_text northwest 300x150+2+2 || true # blank lines show nothing
fi
# The pointer rests in the corner, where no part of the window shows that it is there.
xdotool mousemove 1023 767
import -silent -window "$window" -frame "$picture"
