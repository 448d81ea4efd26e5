#!/usr/bin/env bash
# Sets up, builds and runs the whole test suite.
#   scripts/test.sh             regular build in build/
#   scripts/test.sh --sanitize  AddressSanitizer + UndefinedBehaviorSanitizer build in build-asan/
#   scripts/test.sh --threads   ThreadSanitizer build in build-tsan/ of the tests that run threads
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
bash scripts/check-layers.sh

build=build
flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo)
if [ "${1:-}" = "--sanitize" ]; then
  build=build-asan
  flags=(-DCMAKE_BUILD_TYPE=Debug -DGRAFEL_SANITIZE=ON -DGRAFEL_BUILD_BENCH=OFF)
  export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
fi

if [ "${1:-}" = "--threads" ]; then
  build=build-tsan
  flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DGRAFEL_SANITIZE_THREAD=ON -DGRAFEL_BUILD_BENCH=OFF)
  cmake -S . -B "$build" -G Ninja "${flags[@]}" >/dev/null
  cmake --build "$build" --target grafel_tests
  TSAN_OPTIONS=halt_on_error=1 "$build/tests/grafel_tests" --gtest_filter='*Concurrent*'
  exit 0
fi

cmake -S . -B "$build" -G Ninja "${flags[@]}" >/dev/null
cmake --build "$build"
ctest --test-dir "$build" --output-on-failure -j "$(nproc)"
