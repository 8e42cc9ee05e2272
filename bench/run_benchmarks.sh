#!/bin/sh
# Runs the benchmarks the way BENCHMARKS.md reports them: five repetitions,
# aggregates only, showing the medians and the coefficients of variation (a
# cv of several percent means the machine was busy: run again).
# Usage: bench/run_benchmarks.sh [path/to/zowidgets_bench] [benchmark options...]
# Extra options go to the binary, for example --benchmark_filter=valServer.
set -eu

binary=build/bench/bench/zowidgets_bench
if [ $# -gt 0 ] && [ -x "$1" ]; then
  binary=$1
  shift
fi
if [ ! -x "$binary" ]; then
  echo "no benchmark binary at $binary; build it with: cmake --preset bench && cmake --build --preset bench" >&2
  exit 1
fi

output=$("$binary" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true "$@")
printf '%s\n' "$output" | grep -E '^-+$|^Benchmark|_median|_cv'
