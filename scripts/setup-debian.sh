#!/usr/bin/env bash
# Installs what building, testing and benchmarking need, on Debian, where it is missing.
# usage: scripts/setup-debian.sh [--peers]   (--peers adds the libraries the benchmarks compare with)
set -euo pipefail
packages=(build-essential cmake ninja-build pkg-config git libtbb-dev libstb-dev libgtest-dev libbenchmark-dev)
if [ "${1:-}" = "--peers" ]; then
  packages+=(libdeflate-dev liblz4-dev libisal-dev libopencv-dev libvips-dev)
fi
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if [ "${#missing[@]}" -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
fi
