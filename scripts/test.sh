#!/usr/bin/env bash
# Builds the library and runs the whole test suite twice: a release build with warnings as
# errors, then a build under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup-debian.sh
jobs=$(nproc)

cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DQVIMAGE_WERROR=ON
cmake --build build/release -j "$jobs"
ctest --test-dir build/release -j "$jobs" --output-on-failure

cmake -S . -B build/sanitize -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQVIMAGE_WERROR=ON -DQVIMAGE_SANITIZE=ON \
  -DQVIMAGE_BUILD_BENCH=OFF
cmake --build build/sanitize -j "$jobs"
ASAN_OPTIONS=abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build/sanitize -j "$jobs" --output-on-failure
