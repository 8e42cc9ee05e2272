#!/usr/bin/env bash
# Fuzzes the emoji table generator's reading of Unicode's emoji test data for
# SECONDS (default 60), seeded with that file cut into pieces of 40 lines.
# Without FUZZER, builds it first in build/emoji-fuzz with clang. Exits
# non-zero when the fuzzer finds a crash, a leak or a timeout; the failing
# input is then kept in the build folder as emoji-fuzz-crash-*.
#   tests/host/fuzz/run_emoji_fuzz.sh [SECONDS] [FUZZER] [EMOJI_TEST_FILE]
set -euo pipefail
seconds=${1:-60}
fuzzer=${2:-}
data=${3:-/usr/share/unicode/emoji/emoji-test.txt}
root=$(cd "$(dirname "$0")/../../.." && pwd)

if [ -z "$fuzzer" ]; then
  build="$root/build/emoji-fuzz"
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DZO_BUILD_FUZZERS=ON -DZO_BUILD_APPS=OFF >/dev/null
  cmake --build "$build" -j1 --target emoji_test_fuzz
  fuzzer="$build/tests/host/fuzz/emoji_test_fuzz"
fi

corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
if [ -f "$data" ]; then
  split -l 40 "$data" "$corpus/piece-"
else
  echo "note: no emoji test data at $data; fuzzing from nothing" >&2
fi

"$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
  -artifact_prefix="$(dirname "$fuzzer")/emoji-fuzz-" "$corpus"
