#!/usr/bin/env bash
# Builds Sumlet and runs every test, from a bare Debian 12 on. Needs no display.
#
#   scripts/test.sh [PRESET] [CTEST-OPTION...]     PRESET is dev, or asan for the sanitizers
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

preset=dev
if (($# > 0)) && [[ $1 != -* ]]; then
  preset=$1
  shift
fi

ensure_packages build gui test screenshot
build_preset "$preset"

cd "$projectRoot"
exec ctest --preset "$preset" --parallel "$(nproc)" "$@"
