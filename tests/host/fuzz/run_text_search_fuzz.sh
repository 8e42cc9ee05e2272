#!/usr/bin/env bash
# Fuzzes TextSearch for SECONDS (default 60), seeded with patterns of every
# kind. Exits non-zero when the fuzzer finds a crash, a broken promise, a
# leak or a timeout; the failing input is then kept beside the fuzzer as
# text-search-fuzz-crash-*.
#   tests/host/fuzz/run_text_search_fuzz.sh SECONDS FUZZER
set -euo pipefail
seconds=${1:-60}
fuzzer=$2

corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
n=0
for seed in 'cat\0grinning cat' 'c?t\0CAT' '*face*|dog\0dog face' '!red\0blue' 'a\\*b\0a*b' \
  '  spaced  \0spaced' '\\ lead\0 lead' '|||\0anything' 'caf\xc3\xa9\0CAF\xc3\x89' '\xce\xa3\xce\xb1\0\xcf\x83\xce\xb1'; do
  printf "\\x0$((n % 4))$seed" >"$corpus/seed-$n"
  n=$((n + 1))
done

"$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
  -artifact_prefix="$(dirname "$fuzzer")/text-search-fuzz-" "$corpus"
