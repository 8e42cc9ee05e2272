#!/usr/bin/env bash
# Seeds the track button's resize message with requests well and badly made.
#   seeds/track_resize.sh CORPUS
set -euo pipefail
corpus=$1
n=0
for seed in 'TrackBtnResize 20 30' 'TrackBtnResize -15 40' 'TrackBtnResize 5' 'Other 1 2' 'TrackBtnResize' \
  'TrackBtnResize x 4' 'TrackBtnResize 2147483647 -2147483648' 'TrackBtnResize  7\t9 trailing' ''; do
  printf '%b' "$seed" >"$corpus/seed-$n"
  n=$((n + 1))
done
