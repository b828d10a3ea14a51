#!/usr/bin/env bash
# Measures Sumlet on this machine: the engine alone, what is stored, the window, and whole processes beside other calculators.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_packages build gui bench bench-peers
build_preset release -DSUMLET_BUILD_BENCH=ON

"$projectRoot/build/release/engine_benchmark"
"$projectRoot/build/release/persistence_benchmark"
"$projectRoot/build/release/window_benchmark" 2>/dev/null
python3 -B "$projectRoot/bench/peers.py" "$projectRoot/build/release/sumlet-eval" "$@"
