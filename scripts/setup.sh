#!/usr/bin/env bash
# Installs the Debian packages that building and testing Grafel need. Quiet and quick when
# everything is already there; run as root (or with sudo available) on a fresh machine.
set -euo pipefail

packages=(g++ cmake ninja-build pkgconf libexpat1-dev libgtest-dev libgmock-dev libbenchmark-dev
          clang libclang-rt-dev)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
