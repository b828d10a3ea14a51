#!/usr/bin/env bash
# Measures Sumlet on this machine. docs/performance.md shows the results of one machine.
#
#   scripts/bench.sh [SECTION...]     without arguments all sections
#
#   engine         the calculation alone: the cost of a line, an operator and a parenthesis as a text grows
#   storage        saving and loading many templates and windows
#   window         from a key to the painted result; opening a window; restoring and saving a session
#   start          from the start of the process to the painted window, beside a bare Qt program and other calculators
#   peers          sumlet-eval beside other command-line calculators
#   instructions   how many instructions sumlet-eval executes, and in which functions
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

bench="$projectRoot/bench"
build="$projectRoot/build/release"

# Real-time priority, if the user may set it, so that other processes do not interrupt the measurement.
undisturbed=()
if chrt -r 1 true 2>/dev/null; then undisturbed=(chrt -r 1); fi

measure_engine() { "${undisturbed[@]}" "$build/engine_benchmark"; }
measure_storage() { "${undisturbed[@]}" "$build/persistence_benchmark"; }
measure_window() { "${undisturbed[@]}" "$build/window_benchmark" 2>/dev/null; }
measure_peers() { "${undisturbed[@]}" python3 -B "$bench/peers.py" "$build/sumlet-eval"; }
measure_instructions() { python3 -B "$bench/instructions.py" "$build/sumlet-eval"; }

# A display with room for a large session, and a session bus, which every desktop has.
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
