#!/usr/bin/env bash
# Fuzzes IPAddress::fromString, and a paste into an address entry, for
# SECONDS (default 60), seeded with a few addresses and near misses. Without
# FUZZER, builds it first in build/ip-fuzz with clang. Exits non-zero when the
# fuzzer finds a crash, a leak or a timeout; the failing input is then kept in
# the build folder as ip-fuzz-crash-*.
#   tests/host/fuzz/run_ip_address_fuzz.sh [SECONDS] [FUZZER]
set -euo pipefail
seconds=${1:-60}
fuzzer=${2:-}
root=$(cd "$(dirname "$0")/../../.." && pwd)

if [ -z "$fuzzer" ]; then
  build="$root/build/ip-fuzz"
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DZO_BUILD_FUZZERS=ON -DZO_BUILD_APPS=OFF -DZO_BUILD_TESTS=OFF >/dev/null
  cmake --build "$build" -j2 --target ip_address_fuzz
  fuzzer="$build/tests/host/fuzz/ip_address_fuzz"
fi

# The entry draws text: fontconfig's caches, which the leak checker cannot
# follow, are known and left out, as in the sanitizer build.
export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp${LSAN_OPTIONS:+:$LSAN_OPTIONS}"

corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
n=0
# The first byte picks the box pasted into; the rest is the text.
for seed in '192.168.0.10' '10.0.0.1:8080' ' 255.255.255.255:65535 ' '0.0.0.0:0' '1.2.3' '1.2.3.4.5' \
  '256.1.1.1' '1.2.3.4:70000' '1.2.3.4:' '010.001.000.099' '12345678' 'ab1-2.x' '4294967297.1.1.1'; do
  { printf "\\x$(printf %02x $((n % 5)))"; printf '%s' "$seed"; } >"$corpus/seed-$n"
  n=$((n + 1))
done

"$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
  -artifact_prefix="$(dirname "$fuzzer")/ip-fuzz-" "$corpus"
