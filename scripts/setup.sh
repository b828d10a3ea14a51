#!/usr/bin/env bash
# The Debian packages of this project, and functions that the other scripts share.
#
#   scripts/setup.sh [GROUP...]     installs the missing packages of the groups; the default is what run.sh needs
#   source scripts/setup.sh         defines projectRoot, ensure_packages and build_preset
#
# Prints nothing if nothing is missing.
set -euo pipefail

projectRoot=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# The fonts of scripts/fonts.conf.
fonts="fonts-dejavu-core fonts-noto-core fonts-liberation fonts-cantarell"

# The only list of packages. A group contains what one kind of work needs on a bare Debian 12 or 13.
declare -A packageGroups=(
  [build]="cmake g++ ninja-build ccache pkgconf libutf8proc-dev"
  [gui]="qt6-base-dev libxcb1-dev fonts-dejavu-core x11-utils"
  [test]="libgtest-dev python3 bash-completion libplist-utils python3-pyatspi at-spi2-core dbus-daemon sway wtype wl-clipboard qt6-wayland strace procps $fonts"
  [gates]="clang-format clang-tidy reuse"
  [fuzz]="clang libclang-rt-dev"
  [screenshot]="xvfb openbox xdotool imagemagick x11-utils xclip fonts-dejavu-core"
  [package]="build-essential dpkg-dev debhelper fakeroot lintian desktop-file-utils appstream mandoc"
  [tree]="debootstrap"
  [icons]="librsvg2-bin icnsutils icoutils"
  [bench]="libbenchmark-dev libx11-dev libxdamage-dev valgrind dbus-daemon"
  [bench-peers]="python3 mawk gawk bc luajit"
  [bench-windows]="python3 speedcrunch galculator featherpad mousepad qalculate-gtk gnome-calculator"
)

# ensure_packages GROUP...: installs the missing packages of the groups.
ensure_packages() {
  local group names wanted=() missing=()
  for group in "$@"; do
    if [[ -z ${packageGroups[$group]:-} ]]; then
      echo "setup.sh: there is no package group $group; the groups are: ${!packageGroups[*]}" >&2
      return 2
    fi
    read -ra names <<<"${packageGroups[$group]}"
    wanted+=("${names[@]}")
  done
  if ! command -v apt-get >/dev/null; then
    echo "setup.sh: this is no Debian system, so these packages are taken to be there: ${wanted[*]}" >&2
    return 0
  fi
  mapfile -t missing < <(missing_packages "${wanted[@]}")
  if ((${#missing[@]} > 0)); then install_packages "${missing[@]}"; fi
}

# missing_packages NAME...: prints the names that are not installed, one a line, each once.
missing_packages() {
  local installed
  installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
  printf '%s\n' "$@" | sort -u | while read -r name; do
    grep -qxF "$name installed" <<<"$installed" || echo "$name"
  done
}

install_packages() {
  local asRoot=()
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "setup.sh: please install these Debian packages as root and start again: $*" >&2
      return 1
    fi
    asRoot=(sudo)
  fi
  echo "Installing the Debian packages that are missing: $*."
  "${asRoot[@]}" apt-get update -q
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "$@"
}

# build_preset NAME [CMAKE-OPTION...]: configures and builds build/NAME.
build_preset() {
  (cd "$projectRoot" && cmake --preset "$@" >/dev/null && cmake --build --preset "$1")
}

if [[ ${BASH_SOURCE[0]} == "$0" ]]; then
  if (($# == 0)); then set -- build gui; fi
  ensure_packages "$@"
fi
