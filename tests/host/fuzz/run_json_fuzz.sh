#!/usr/bin/env bash
# Fuzzes JSON::parse for SECONDS (default 60), seeded with the JSON
# conformance corpus. Without FUZZER, builds it first in build/json-fuzz with
# clang. Exits non-zero when the fuzzer finds a crash, a leak or a timeout;
# the failing input is then kept in the build folder as json-fuzz-crash-*.
#   tests/host/fuzz/run_json_fuzz.sh [SECONDS] [FUZZER]
set -euo pipefail
seconds=${1:-60}
fuzzer=${2:-}
root=$(cd "$(dirname "$0")/../../.." && pwd)

if [ -z "$fuzzer" ]; then
  build="$root/build/json-fuzz"
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DZO_BUILD_FUZZERS=ON -DZO_BUILD_APPS=OFF >/dev/null
  cmake --build "$build" -j1 --target json_parse_fuzz
  fuzzer="$build/tests/host/fuzz/json_parse_fuzz"
fi

seeds="$root/../shared/testdata/json-conformance/test_parsing"
corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
if [ -d "$seeds" ]; then
  cp "$seeds"/*.json "$corpus"/
else
  echo "note: no conformance corpus at $seeds; fuzzing from nothing" >&2
fi

"$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
  -artifact_prefix="$(dirname "$fuzzer")/json-fuzz-" "$corpus"
