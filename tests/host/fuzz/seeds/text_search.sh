#!/usr/bin/env bash
# Seeds TextSearch with patterns of every kind: a leading byte for the
# options, the pattern, a zero byte, the text searched.
#   seeds/text_search.sh CORPUS
set -euo pipefail
corpus=$1
n=0
for seed in 'cat\0grinning cat' 'c?t\0CAT' '*face*|dog\0dog face' '!red\0blue' 'a\\*b\0a*b' \
  '  spaced  \0spaced' '\\ lead\0 lead' '|||\0anything' 'caf\xc3\xa9\0CAF\xc3\x89' '\xce\xa3\xce\xb1\0\xcf\x83\xce\xb1'; do
  printf "\\x0$((n % 4))$seed" >"$corpus/seed-$n"
  n=$((n + 1))
done
