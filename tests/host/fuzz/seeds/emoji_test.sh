#!/usr/bin/env bash
# Seeds the emoji table generator's reader with Unicode's emoji test data cut
# into pieces of 40 lines.
#   seeds/emoji_test.sh CORPUS [EMOJI_TEST_FILE]
set -euo pipefail
corpus=$1
data=${2:-/usr/share/unicode/emoji/emoji-test.txt}
if [ -f "$data" ]; then
  split -l 40 "$data" "$corpus/piece-"
else
  echo "note: no emoji test data at $data; fuzzing from nothing" >&2
fi
