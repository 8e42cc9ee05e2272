#!/usr/bin/env bash
# Seeds the tutorial reader with the golden tutorial, the short forms, keys in
# other cases, values of the wrong kind and a few broken files.
#   seeds/tutorial_load.sh CORPUS
set -euo pipefail
corpus=$1
root="$(cd "$(dirname "$0")/../../../.." && pwd)"
cp "$root/tests/tutorials/golden/"*.ZoTutorial "$corpus"/
n=0
for seed in '{}' '{"name":"A","category":"B","components":[],"phases":[]}' \
  '{"phases":[{"text":"short","pause":1.5,"pointer":{"x":7}}]}' \
  '{"phases":[{"pointer":{"target":"bin","x":1,"y":2},"message":{"target":"bin","relativity":"left","text":"t"}}]}' \
  '{"phases":[{"message":{"origin":"topleft","target":"bin","text":"t"},"action":{"event":"e","modifiers":["shift","shift","alt","Ctrl"]}}]}' \
  '{"components":[{"type":"viewer","X":1,"x":2,"WIDTH":3,"height":"4"}],"Phases":[{}]}' \
  '{"name":5,"phases":{"a":{"pause":1e300},"b":[1]},"components":"none"}' \
  '[1,2,3]' '"text"' '{"name":"half",' ''; do
  printf '%s' "$seed" >"$corpus/seed-$n"
  n=$((n + 1))
done
