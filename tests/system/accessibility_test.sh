#!/usr/bin/env bash
# Looks at the finished program as a screen reader does: accessibility_test.sh PROGRAM. Status 77 where a tool that this
# needs is missing.
set -euo pipefail

here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../scripts/virtual_display.sh"
skip_without Xvfb openbox xdotool xprop dbus-daemon dbus-send

# The bindings come with the system's interpreter, which need not be the first one in the path.
python=
for candidate in python3 /usr/bin/python3; do
  if "$candidate" -c 'import pyatspi' 2>/dev/null; then python=$candidate; fi
done
if [[ -z $python ]] || ! grep -qs . /usr/share/dbus-1/services/org.a11y.Bus.service; then
  echo "skipped: there is no python3-pyatspi or no at-spi2-core"
  exit 77
fi

start_display 1280x900
mkdir -m 700 "$virtualFolder/run"
# A session bus of its own; asked for the bus of the screen readers it starts that, which then lies in the same folder.
export XDG_RUNTIME_DIR=$virtualFolder/run DBUS_SESSION_BUS_ADDRESS=unix:path=$virtualFolder/run/bus
in_background bus dbus-daemon --session --nofork --address="$DBUS_SESSION_BUS_ADDRESS"
wait_for 20 test -S "$virtualFolder/run/bus" || give_up "the session bus does not start"
wait_for 20 dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress ||
  give_up "the bus of the screen readers does not start"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
start_window "$1"
"$python" -B "$here/accessibility_tree.py" || give_up "the accessible tree is not as it has to be"
