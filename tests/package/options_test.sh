#!/usr/bin/env bash
# Configures with addresses of a maker's own, and looks for them in what is made of the options: options_test.sh FOLDER.
set -euo pipefail

build=$1/options
log=$1/options.log
cmake -G Ninja -S "$(dirname "${BASH_SOURCE[0]}")/../.." -B "$build" --fresh -DSUMLET_MAKER_SITE=https://www.maker.test \
  -DSUMLET_BUG_TRACKER=https://maker.test/faults -DSUMLET_SOURCE_SITE=https://maker.test/source >"$log" || {
  cat "$log"
  exit 1
}
metainfo=$build/data/com.fernhill.sumlet.metainfo.xml
addresses=$build/src/shell/include/shell/addresses.h
grep -q '<url type="bugtracker">https://maker.test/faults</url>' "$metainfo"
grep -q '<url type="vcs-browser">https://maker.test/source</url>' "$metainfo"
grep -q 'store\.maker\.test' "$addresses"
if grep -n 'example' "$metainfo" "$addresses"; then exit 1; fi
