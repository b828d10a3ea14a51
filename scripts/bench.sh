#!/usr/bin/env bash
# Measures Sumlet on this machine. docs/performance.md holds what it said when it was last run for it.
#
#   scripts/bench.sh [SECTION...]     all sections without one
#
#   engine         the calculation alone: the cost of a line, an operator, a parenthesis as a text grows
#   storage        saving and loading what a user has piled up
#   window         from a key to the painted result; one more window; a session brought back and saved
#   start          from the start of the process to the painted window, beside a bare Qt program and other calculators
#   peers          sumlet-eval beside other calculators of the command line
#   instructions   what sumlet-eval takes in instructions, and where they go
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

bench="$projectRoot/bench"
build="$projectRoot/build/release"

# Where the user may ask for it, nothing else that runs on the machine gets between.
undisturbed=()
if chrt -r 1 true 2>/dev/null; then undisturbed=(chrt -r 1); fi

measure_engine() { "${undisturbed[@]}" "$build/engine_benchmark"; }
measure_storage() { "${undisturbed[@]}" "$build/persistence_benchmark"; }
measure_window() { "${undisturbed[@]}" "$build/window_benchmark" 2>/dev/null; }
measure_peers() { "${undisturbed[@]}" python3 -B "$bench/peers.py" "$build/sumlet-eval"; }
measure_instructions() { python3 -B "$bench/instructions.py" "$build/sumlet-eval"; }

# A display that has room for a large session, and a session bus, as every desktop has one.
measure_start() {
  "${undisturbed[@]}" dbus-run-session -- bash -c '
    source "$0/scripts/virtual_display.sh"
    start_display 7680x3000
    python3 -B "$0/bench/start_up.py" "$0/build/release"' "$projectRoot"
}

sections=(engine storage window start peers instructions)
for section in "$@"; do
  if [[ " ${sections[*]} " != *" $section "* ]]; then
    echo "bench.sh: there is no section $section; the sections are: ${sections[*]}" >&2
    exit 2
  fi
done
if (($# > 0)); then sections=("$@"); fi

ensure_packages build gui bench
if [[ " ${sections[*]} " == *" peers "* ]]; then ensure_packages bench-peers; fi
if [[ " ${sections[*]} " == *" start "* ]]; then ensure_packages screenshot bench-windows; fi
build_preset release -DSUMLET_BUILD_BENCH=ON -DSUMLET_STATIC_CXX=ON
for section in "${sections[@]}"; do
  printf '\n== %s\n' "$section"
  "measure_$section"
done
