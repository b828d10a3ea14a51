#!/usr/bin/env bash
# check.sh TOOLS COMMAND...: runs the command. Status 77, "skipped" to the test runner, where one of the tools, a list with
# blanks between, is missing.
for tool in $1; do
  if ! command -v "$tool" >/dev/null; then
    echo "skipped: there is no $tool"
    exit 77
  fi
done
shift
exec "$@"
