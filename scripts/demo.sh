#!/usr/bin/env bash
# Builds the library and the qvil tool, then runs the demo.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup-debian.sh
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release
cmake --build build/release -j "$(nproc)" --target qvil
./build/release/tools/qvil/qvil demo
