#!/usr/bin/env bash
# Kills the window program at random instants while somebody types, and counts what the next start has lost.
#
#   scripts/kills.sh [COUNT [PROGRAM]]      1,000 kills of build/release/sumlet
#
# What must not be lost: a word that a pause of a second follows, and a word that is older than five seconds. The display
# and the program get 0.7 s more, because the machine may be busy.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/scripts/virtual_display.sh"

count=${1:-1000}
sumlet=${2:-$root/build/release/sumlet}
folder="$virtualFolder/home/.local/share/Application Support/com.fernhill.sumlet"
slack=700  # milliseconds

now() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); }
stored() {
  local file=$folder/preferences
  if [[ -e $folder/recovery ]]; then file=$folder/recovery; fi
  python3 -B "$root/tests/system/settings_file.py" show "$file"
}

# round NUMBER: sets lost to the words that are missing though they must not be
round() {
  local words=() times=() word i killed last pause
  # Anew each time: the fifth start in a row would ask for a review, and that question would take the keys.
  rm -f "$folder/recovery"
  python3 -B "$root/tests/system/settings_file.py" write "$folder/preferences" '100 80 365 234 1+1'
  start_window "$sumlet"
  press ctrl+a
  for ((i = 0; i < 1 + RANDOM % 6; ++i)); do
    word=w$1x$i
    type_keys "$word "
    words+=("$word")
    times+=("$(now)")
    sleep "$((RANDOM % 3)).$((RANDOM % 10))"
  done
  sleep "0.$((RANDOM % 1000))"
  killed=$(now)
  kill -s KILL "$program"
  wait "$program" 2>/dev/null || true
  last=$killed pause=0
  for ((i = ${#words[@]} - 1; i >= 0; --i)); do
    if ((last - times[i] > 1000 + slack)); then pause=1; fi
    if ((pause == 1 || killed - times[i] > 5000 + slack)); then
      due=$((due + 1))
      stored | grep -q "${words[i]} \|${words[i]}$" || lost+=("${words[i]} after $((killed - times[i])) ms,")
    fi
    # The keys of the next word begin before its time.
    last=$((times[i] - 20 * (${#words[i]} + 1)))
  done
}

start_display 1024x768
lost=()
due=0
for ((number = 1; number <= count; ++number)); do round "$number"; done
echo "$count kills, $due words that must be there, ${#lost[@]} lost: ${lost[*]}"
((${#lost[@]} == 0))
