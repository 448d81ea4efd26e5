#!/usr/bin/env bash
# Builds the fuzz targets with clang in build-fuzz/ and runs each for SECONDS (default 60) on
# top of its corpus: the examples, the tool tests' inputs, the documents the C++ tests hold as
# string literals (extracted into build-fuzz/fuzz/seeds), and what earlier runs kept in
# build-fuzz/fuzz/corpus-TARGET. Fails on any finding, which is left in build-fuzz/fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"

build=build-fuzz
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
  -DGRAFEL_FUZZ=ON -DGRAFEL_BUILD_TESTS=OFF -DGRAFEL_BUILD_BENCH=OFF >/dev/null
cmake --build "$build"
python3 scripts/extract-seeds.py "$build/fuzz/seeds" tests

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
root="$PWD"
cd "$build/fuzz"
for target in zpx zpa export; do
  mkdir -p "corpus-$target"
  echo "fuzz_$target: ${seconds}s"
  ./"fuzz_$target" -dict=grafel.dict -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 \
    -max_len=65536 -artifact_prefix="finding-$target-" -print_final_stats=1 \
    "corpus-$target" seeds "$root/examples" "$root/tests/tools/data" 2>"log-$target.txt" ||
    { tail -n 40 "log-$target.txt"; echo "fuzz_$target found a fault"; exit 1; }
  grep -E "stat::number_of_executed_units|cov:" "log-$target.txt" | tail -n 2
done
