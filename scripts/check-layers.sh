#!/usr/bin/env bash
# Fails when a library file includes a header of a layer above its own. The layers, lowest
# first; a folder may include its own layer and those below it. Tools, tests, benchmarks and
# examples may include anything.
set -euo pipefail
cd "$(dirname "$0")/.."

layers=(tessel arbor foundation properties document structure primitives output catalogue)

rank() {
  local i
  for i in "${!layers[@]}"; do
    if [ "${layers[$i]}" = "$1" ]; then
      echo "$i"
      return
    fi
  done
  echo -1
}

status=0
for layer in "${layers[@]}"; do
  [ -d "$layer" ] || continue
  own=$(rank "$layer")
  # Every #include <grafel/LAYER/...> of every source and header in the layer.
  while IFS=: read -r file line text; do
    if ! [[ "$text" =~ \<grafel/([^/\>]+)/ ]]; then
      echo "$file:$line: the umbrella header includes every layer: $text"
      status=1
      continue
    fi
    used=${BASH_REMATCH[1]}
    used_rank=$(rank "$used")
    if [ "$used_rank" -lt 0 ]; then
      echo "$file:$line: '$used' is no layer of the library: $text"
      status=1
    elif [ "$used_rank" -gt "$own" ]; then
      echo "$file:$line: layer '$layer' includes the higher layer '$used': $text"
      status=1
    fi
  done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*<grafel/' \
             --include='*.h' --include='*.cpp' "$layer" || true)
  # A relative include would step around the check.
  if grep -rnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"\.\./' \
       --include='*.h' --include='*.cpp' "$layer"; then
    echo "layer '$layer': include library headers as <grafel/LAYER/File.h>, not by relative path"
    status=1
  fi
done
[ "$status" -eq 0 ] && echo "layers: no file includes a layer above its own"
exit "$status"
