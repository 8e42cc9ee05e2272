#!/usr/bin/env bash
# Fuzzes SvgIcon::render for SECONDS (default 60), seeded with the icon
# theme's symbolic SVGs (two leading bytes each for the side and the turn)
# and a few small documents. Without FUZZER, builds it first in
# build/svg-fuzz with clang. Exits non-zero when the fuzzer finds a crash, a
# leak or a timeout; the failing input is then kept in the build folder as
# svg-fuzz-crash-*.
#   tests/host/fuzz/run_svg_fuzz.sh [SECONDS] [FUZZER]
set -euo pipefail
seconds=${1:-60}
fuzzer=${2:-}
root=$(cd "$(dirname "$0")/../../.." && pwd)

if [ -z "$fuzzer" ]; then
  build="$root/build/svg-fuzz"
  cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DZO_BUILD_FUZZERS=ON -DZO_BUILD_APPS=OFF >/dev/null
  cmake --build "$build" -j1 --target svg_icon_fuzz
  fuzzer="$build/tests/host/fuzz/svg_icon_fuzz"
fi

corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
n=0
for svg in /usr/share/icons/Adwaita/scalable/ui/*-symbolic.svg \
  /usr/share/icons/Adwaita/scalable/actions/{view-reveal,view-conceal,system-search,color-select}-symbolic.svg \
  /usr/share/icons/Adwaita/scalable-up-to-32/status/process-working-symbolic.svg; do
  [ -f "$svg" ] || continue
  { printf '\x10\x00'; cat "$svg"; } >"$corpus/theme-$n.svg"
  n=$((n + 1))
done
[ "$n" -gt 0 ] || echo "note: no icon theme under /usr/share/icons/Adwaita; seeding with small documents only" >&2
printf '\x08\x40<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 4 4"><rect width="2" height="4"/></svg>' \
  >"$corpus/half.svg"
printf '\x20\x00<svg xmlns="http://www.w3.org/2000/svg" width="8" height="4"><circle cx="4" cy="2" r="2" opacity=".5"/></svg>' \
  >"$corpus/wide.svg"

"$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
  -artifact_prefix="$(dirname "$fuzzer")/svg-fuzz-" "$corpus"
