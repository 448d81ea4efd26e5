#!/usr/bin/env bash
# Sets up, builds the grafel tool and runs it on a bundled example: a summary of the plot, then
# the plot written out again as ZPX.
#   scripts/run-example.sh [FILE]   FILE defaults to examples/function-graph.zpx
# The build directory is build/, as for scripts/test.sh; GRAFEL_BUILD_DIR chooses another.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh

build=${GRAFEL_BUILD_DIR:-build}
example=${1:-examples/function-graph.zpx}

cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" --target grafel_tool

echo
echo "\$ grafel info $example"
"$build/tools/grafel" info "$example"
echo
echo "\$ grafel convert $example"
"$build/tools/grafel" convert "$example"
