#!/usr/bin/env bash
# Seeds link reading and HTML writing with links as rows hold them, plain
# paths, and texts full of markup.
#   seeds/log_link.sh CORPUS
set -euo pipefail
corpus=$1
n=0
for seed in $'\u2060link\tFinal render\t/renders/final.mov\t/renders/final.wav' \
  $'\u2060ilink\t\t{"type":"logger","params":{"title":"x"}}' '/renders/report.HTML' 'https://example.org/a|b' \
  '<script>alert(1)</script>' '<img src=x onerror="alert(2)">' 'Tom & Jerry "cut" caf\xc3\xa9' $'\u2060link' ''; do
  printf '%b' "$seed" >"$corpus/seed-$n"
  n=$((n + 1))
done
