#!/usr/bin/env bash
# Runs one libFuzzer target for SECONDS, seeded by SEEDER (a script given the
# empty corpus folder and the ARGS that follow it). Exits non-zero when the
# fuzzer finds a crash, a broken promise, a leak or a timeout; the failing
# input is then kept beside the fuzzer as NAME-fuzz-crash-*.
#   tests/host/fuzz/run_fuzz.sh SECONDS FUZZER NAME SEEDER [ARGS...]
set -euo pipefail
seconds=$1
fuzzer=$2
name=$3
seeder=$4
shift 4
root=$(cd "$(dirname "$0")/../../.." && pwd)

# Targets that draw text reach fontconfig's caches, which the leak checker
# cannot follow; they are known and left out, as in the sanitizer build.
export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp${LSAN_OPTIONS:+:$LSAN_OPTIONS}"

corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
"$seeder" "$corpus" "$@"

"$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
  -artifact_prefix="$(dirname "$fuzzer")/$name-fuzz-" "$corpus"
