#!/usr/bin/env bash
# Kills the window program at random instants while it receives keys, and counts the words that its files lack.
#
#   scripts/kills.sh [COUNT [PROGRAM]]      1,000 kills of build/release/sumlet
#
# The program must keep a word that is followed by a pause of a second, and a word that is older than five seconds. The
# script allows 0.7 s more for the display and the program, because the machine may be busy.
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

# round NUMBER: kills the program once. Counts in `due` the words that must be stored, and appends to `lost` those that
# are not.
round() {
  local words=() times=() word i killed last pause
  # Writes new settings each time, because the fifth start asks for a review, and that window would take the keys.
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
    # The recorded time of a word is that of its last key. Its first key came earlier.
    last=$((times[i] - 20 * (${#words[i]} + 1)))
  done
}

start_display 1024x768
lost=()
due=0
for ((number = 1; number <= count; ++number)); do round "$number"; done
echo "$count kills, $due words that must be there, ${#lost[@]} lost: ${lost[*]}"
((${#lost[@]} == 0))
