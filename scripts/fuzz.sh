#!/usr/bin/env bash
# Runs the fuzz targets on inputs that evolve from their seeds. Fails on a wrong answer, a crash, or an input that takes
# too long.
#
#   scripts/fuzz.sh [-seed=N] [SECONDS] [TARGET...]      30 seconds for each target; two run at a time
#
# Runs with the same seed try the same inputs in the same order. build/fuzz/finds holds the inputs that fail, and the log
# of each run; build/fuzz/corpus holds the inputs that reach new code, for the next run. Repeat a failure with
# build/fuzz/fuzz_TARGET FILE, and add the file to fuzz/corpus/TARGET, which the tests replay.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
cd "$projectRoot"

seed=0  # a new one for each run
if [[ ${1:-} == -seed=* ]]; then
  seed=${1#-seed=}
  shift
fi
seconds=${1:-30}
shift $(($# > 0 ? 1 : 0))
if ! [[ $seed$seconds =~ ^[0-9]+$ ]]; then
  sed -n '5p' "${BASH_SOURCE[0]}" | cut -c 3- >&2
  exit 2
fi

ensure_packages build fuzz
build_preset fuzz

build=build/fuzz
mkdir -p "$build/finds"
mapfile -t known < <(find "$build" -maxdepth 1 -name 'fuzz_*' -type f -perm -u+x -printf '%f\n' |
  sed 's/^fuzz_//' | sort)
targets=("$@")
if ((${#targets[@]} == 0)); then targets=("${known[@]}"); fi
for target in "${targets[@]}"; do
  [[ -x $build/fuzz_$target ]] || { echo "fuzz.sh: no target $target; the targets are: ${known[*]}" >&2; exit 2; }
done

# The greatest length of an input in bytes. The plain evaluator is too slow for more, and the others treat longer inputs
# in the same way.
declare -A longest=([engine]=65536 [rewriting]=300 [settings]=2048)

# Do not record where each block was allocated, which takes a fifth of the time. To see the whole stack of a failure, run
# its input without this option.
export ASAN_OPTIONS=malloc_context_size=2

# run_target NAME: an input may take ten seconds. A release evaluates any 64 KiB in less than two; the target does it
# twice, and the sanitizers take a multiple.
run_target() {
  local name=$1 log=$build/finds/$1.log
  mkdir -p "$build/corpus/$name"
  if "$build/fuzz_$name" -seed="$seed" -max_total_time="$seconds" -max_len="${longest[$name]:-1024}" \
    -dict="fuzz/$name.dict" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$build/finds/$name-" "$build/corpus/$name" "fuzz/corpus/$name" >"$log" 2>&1; then
    printf '%-16s %s inputs\n' "$name" "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
  else
    printf '%s: FOUND, see %s\n' "$name" "$log" >&2
    grep -E '^Broken:|ERROR:|runtime error:|Test unit written' "$log" >&2 || tail -n 5 "$log" >&2
    return 1
  fi
}

status=0
running=()
for target in "${targets[@]}"; do
  if ((${#running[@]} == 2)); then
    wait "${running[0]}" || status=1
    running=("${running[1]}")
  fi
  run_target "$target" &
  running+=($!)
done
for run in "${running[@]}"; do wait "$run" || status=1; done
exit "$status"
