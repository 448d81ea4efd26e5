#!/usr/bin/env bash
# Regenerates the documents that are written from the library itself, or checks that the
# committed ones are current:
#   scripts/update-docs.sh [--check] [TOOL]
# TOOL is the grafel tool to ask (default build/tools/grafel, built first when it is missing).
# With --check nothing is written; the exit status is 1 when a document is out of date.
set -euo pipefail
cd "$(dirname "$0")/.."

check=false
if [ "${1:-}" = "--check" ]; then
    check=true
    shift
fi
tool=${1:-build/tools/grafel}
if [ ! -x "$tool" ]; then
    cmake --build "$(dirname "$(dirname "$tool")")" --target grafel_tool
fi

fresh=$(mktemp)
trap 'rm -f "$fresh"' EXIT
"$tool" classes --markdown -o "$fresh"

if $check; then
    if ! cmp -s "$fresh" docs/classes.md; then
        echo "docs/classes.md is out of date with the class tables:"
        diff -u docs/classes.md "$fresh" | head -40 || true
        echo "Regenerate it with scripts/update-docs.sh (or: cmake --build build --target update-docs)"
        exit 1
    fi
    exit 0
fi
mkdir -p docs
cp "$fresh" docs/classes.md
echo "wrote docs/classes.md"
