#!/usr/bin/env bash
# Builds Sumlet and starts its window, from a bare Debian 12 on. Without a display it evaluates the examples instead.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_packages build gui
build_preset release

# Checks that the display answers, because DISPLAY may be left over from another session.
if [[ -n ${DISPLAY:-} ]] && xdpyinfo >/dev/null 2>&1; then
  exec "$projectRoot/build/release/sumlet" "$@"
fi

cd "$projectRoot"
echo
echo "There is no display to open the window on, so here are the results of the equations in examples/:"
build/release/sumlet-eval examples/*.txt
echo "scripts/screenshot.sh OUT.png examples/loan.txt draws the window with an equation in it as a picture."
