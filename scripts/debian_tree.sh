#!/usr/bin/env bash
# Runs the two commands of README.md on a bare Debian in a chroot: scripts/run.sh, with an equation typed into its
# window on a virtual display, and scripts/test.sh. Needs root for debootstrap, chroot and mount.
#
#   scripts/debian_tree.sh SUITE FOLDER [COMMAND]
#
# SUITE is bookworm (Debian 12) or trixie (Debian 13). The script installs the minimal system in FOLDER, where it grows
# to a few GB, adds a user who may use sudo, and copies the last commit of this project to that user's home. It uses
# the system of an earlier run again, with a new copy of the project. COMMAND, a line for the shell, replaces the two
# commands.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

if (($# < 2 || $# > 3)) || [[ $1 == -* ]]; then
  echo "Usage: scripts/debian_tree.sh SUITE FOLDER [COMMAND]" >&2
  exit 2
fi
if ((EUID != 0)); then
  echo "debian_tree.sh must run as root, for example with sudo." >&2
  exit 1
fi
suite=$1
tree=$(realpath -m "$2")
ensure_packages tree screenshot
commit=$(git -C "$projectRoot" rev-parse --short HEAD)

if [[ ! -d $tree/home/newcomer ]]; then
  debootstrap --variant=minbase --include=sudo "$suite" "$tree" http://deb.debian.org/debian
  chroot "$tree" useradd --create-home --shell /bin/bash newcomer
  echo "newcomer ALL=(ALL) NOPASSWD: ALL" >"$tree/etc/sudoers.d/newcomer"
fi
project=$tree/home/newcomer/sumlet
# Also removes the builds of an earlier run. The user's ccache keeps their object files.
rm -rf "$project"
mkdir "$project"
git -C "$projectRoot" archive "$commit" | tar -x -C "$project"
chroot "$tree" chown -R newcomer: /home/newcomer/sumlet

source "$projectRoot/scripts/virtual_display.sh"
mkdir -p /tmp/.X11-unix

# in_tree COMMAND: runs COMMAND in the chroot as the user newcomer, in new mount and PID namespaces. So all mounts and
# processes end with the command, even if it is killed.
in_tree() {
  unshare --mount --pid --fork --kill-child bash -euc '
    mount -t proc proc "$0/proc"
    mount -t devpts -o ptmxmode=666 devpts "$0/dev/pts"
    mount -t tmpfs tmpfs "$0/dev/shm"
    mkdir -p "$0/tmp/.X11-unix"
    mount --bind /tmp/.X11-unix "$0/tmp/.X11-unix"
    exec chroot "$0" su --login newcomer --command "cd sumlet && $1"' "$tree" "$1"
}

if (($# == 3)); then
  in_tree "$3"
  exit
fi

# These replace the functions of virtual_display.sh, which find the window by the process ID: the program has a PID
# namespace of its own.
window_is_active_or_gone() {
  kill -0 "$program" || return 0
  window=$(xdotool getactivewindow) && xdotool search --onlyvisible --class '^sumlet$' | grep -qx "$window"
}
equation_is_active() { xdotool getactivewindow getwindowname | grep -qx Sumlet; }

start_display 1280x800
in_background run in_tree "DISPLAY=$DISPLAY scripts/run.sh"
program=$!
wait_for 7200 window_is_active_or_gone || give_up "$suite: run.sh opens no window"
kill -0 "$program" 2>/dev/null || give_up "$suite: run.sh has ended without a window"
open_equation
type_keys 6*7
press Tab
expect_text 42
press ctrl+q
wait "$program" || give_up "$suite: run.sh ends with status $?"
echo "$suite, $commit: run.sh has built Sumlet; its window has shown the result and quit."
in_tree scripts/test.sh
echo "$suite, $commit: test.sh has passed."
